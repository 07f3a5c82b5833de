#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace KivPlayer {

/// Keeps a file up to date with what the window shows, for programs that look on. The file is whole at every
/// moment.
class StateFile
{
public:
    /// @param file empty: nothing is written.
    explicit StateFile(std::string file) : m_file(std::move(file)) {}

    bool isWanted() const { return !m_file.empty(); }
    /// Writes where the last writing is long enough ago.
    bool isDue(double seconds);
    /// @return false where it cannot be written.
    bool write(const nlohmann::ordered_json& state);

private:
    std::string m_file;
    double m_written = -1.0;
};

}  // namespace KivPlayer
