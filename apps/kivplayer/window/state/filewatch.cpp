#include "apps/kivplayer/window/state/filewatch.h"

namespace KivPlayer {

namespace {

constexpr double kLookInterval = 0.25;  // seconds

}  // namespace

FileWatch::Stamp FileWatch::stampOf(const std::string& file)
{
    std::error_code problem;
    Stamp stamp;
    stamp.time = std::filesystem::last_write_time(file, problem);
    stamp.size = problem ? 0 : std::filesystem::file_size(file, problem);
    return problem ? Stamp() : stamp;
}

std::set<std::string> FileWatch::changed(const std::set<std::string>& files, double seconds)
{
    if (!m_on || seconds - m_looked < kLookInterval)
        return {};
    m_looked = seconds;
    std::set<std::string> found;
    for (const std::string& file : files) {
        const Stamp now = stampOf(file);
        const auto [known, isNew] = m_files.try_emplace(file, Watched{now, now});
        Watched& watched = known->second;
        // Gone is not changed: many programs take a file away before they put the new one into its place.
        if (!isNew && now == watched.latest && !(now == watched.known) && !(now == Stamp())) {
            watched.known = now;
            found.insert(file);
        }
        watched.latest = now;
    }
    return found;
}

}  // namespace KivPlayer
