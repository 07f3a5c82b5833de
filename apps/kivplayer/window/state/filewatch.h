#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <vector>

#include "apps/kivplayer/session/session.h"

namespace KivPlayer {

/// Notices when the files of actors change: a few times a second, and once a file has come to rest, so that
/// one that is still being written is not read half.
class FileWatch
{
public:
    explicit FileWatch(bool on) : m_on(on) {}

    /// @return the actors whose files have changed since they were first seen here or last returned.
    std::vector<unsigned> changed(const std::map<unsigned, LoadedActor>& actors, double seconds);

private:
    struct Stamp
    {
        std::filesystem::file_time_type time{};
        std::uintmax_t size = 0;

        bool operator==(const Stamp& other) const { return time == other.time && size == other.size; }
    };
    struct Watched
    {
        Stamp known;   ///< what the actor was loaded from
        Stamp latest;  ///< at the last look
    };

    static Stamp stampOf(const std::string& file);

    bool m_on;
    double m_looked = -1.0;
    std::map<std::string, Watched> m_files;
};

}  // namespace KivPlayer
