#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace KivPlayer {

/// Keeps a file up to date with what the window shows, for tests that look on. The file is whole at every
/// moment.
class StateFile
{
public:
    /// @param file empty: nothing is written.
    explicit StateFile(std::string file) : m_file(std::move(file)) {}

    const std::string& name() const { return m_file; }
    bool isWanted() const { return !m_file.empty(); }
    /// @return whether the last writing is long enough ago; then it counts as done now.
    bool isDue(double seconds);
    /// @return why it cannot be written; empty on success.
    std::string write(const nlohmann::ordered_json& state) const;

private:
    std::string m_file;
    double m_written = -1.0;
};

}  // namespace KivPlayer
