#pragma once

#include <string>
#include <utility>
#include <vector>

namespace KivPlayer {

/// What the time from the start of the process to the first picture is spent on.
class StartUp
{
public:
    /// Names what has been done since the last call. What came before the first is loading the program.
    void reached(const std::string& part);

    /// Seconds since the process began, as far as the system tells; in order.
    const std::vector<std::pair<std::string, double>>& parts() const { return m_parts; }
    /// "window 0.31 s, first frame 0.52 s"
    std::string text() const;

private:
    std::vector<std::pair<std::string, double>> m_parts;
};

/// The start-up of this process.
StartUp& startUp();

}  // namespace KivPlayer
