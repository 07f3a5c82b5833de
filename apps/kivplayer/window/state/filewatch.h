#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <string>

namespace KivPlayer {

/// Notices when the files change: a few times a second, and once a file has come to rest, so that
/// one that is still being written is not read half.
class FileWatch
{
public:
    explicit FileWatch(bool on) : m_on(on) {}

    /// @param seconds of any clock that goes on.
    /// @return those of the files that have changed since they were first seen here or last returned.
    std::set<std::string> changed(const std::set<std::string>& files, double seconds);

private:
    struct Stamp
    {
        std::filesystem::file_time_type time{};
        std::uintmax_t size = 0;

        bool operator==(const Stamp& other) const { return time == other.time && size == other.size; }
    };
    struct Watched
    {
        Stamp known;   ///< when it was last returned, or first seen
        Stamp latest;  ///< at the last look
    };

    static Stamp stampOf(const std::string& file);

    bool m_on;
    double m_looked = -1.0;
    std::map<std::string, Watched> m_files;
};

}  // namespace KivPlayer
