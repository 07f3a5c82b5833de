#include "apps/kivplayer/window/state/filewatch.h"

#include <set>

namespace KivPlayer {

namespace {

constexpr double kInterval = 0.25;  // seconds

}  // namespace

FileWatch::Stamp FileWatch::stampOf(const std::string& file)
{
    std::error_code problem;
    Stamp stamp;
    stamp.time = std::filesystem::last_write_time(file, problem);
    stamp.size = problem ? 0 : std::filesystem::file_size(file, problem);
    return problem ? Stamp() : stamp;
}

std::vector<unsigned> FileWatch::changed(const std::map<unsigned, LoadedActor>& actors, double seconds)
{
    if (!m_on || seconds - m_looked < kInterval)
        return {};
    m_looked = seconds;
    std::set<std::string> changedFiles;
    for (const auto& [index, actor] : actors) {
        const Stamp now = stampOf(actor.file);
        auto [file, isNew] = m_files.try_emplace(actor.file, Watched{now, now});
        Watched& watched = file->second;
        // Gone is not changed: many programs take a file away before they put the new one into its place.
        if (!isNew && now == watched.latest && !(now == watched.known) && !(now == Stamp())) {
            watched.known = now;
            changedFiles.insert(actor.file);
        }
        watched.latest = now;
    }
    std::vector<unsigned> found;
    for (const auto& [index, actor] : actors)
        if (changedFiles.count(actor.file) > 0)
            found.push_back(index);
    return found;
}

}  // namespace KivPlayer
