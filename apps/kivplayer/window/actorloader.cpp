#include "apps/kivplayer/window/actorloader.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <utility>

namespace KivPlayer {

namespace {

template <typename Answer>
bool isReady(const std::future<Answer>& future)
{
    return future.valid() && future.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

}  // namespace

ActorLoader::ActorLoader(Session& session)
    : m_session(session),
      m_listener(
          [this](std::size_t bytes, std::size_t of) {
              const auto share = static_cast<int>(50 * bytes / std::max<std::size_t>(1, of));
              m_percent = m_isReadAgain ? 50 + share : share;
          },
          [this] { m_isReadAgain = true; })
{}

void ActorLoader::load(unsigned index, const std::string& file, const std::string& name)
{
    m_waiting.push_back({index, file, name});
}

void ActorLoader::start()
{
    m_file.clear();
    if (m_waiting.empty())
        return;
    const Wanted wanted = m_waiting.front();
    m_waiting.pop_front();
    m_file = wanted.file;
    m_percent = 0;
    m_isReadAgain = false;
    m_reading = std::async(std::launch::async,
                           [this, wanted] { return m_session.read(wanted.index, wanted.file, wanted.name); });
}

bool ActorLoader::advance()
{
    if (isReady(m_reading)) {
        m_motion = m_reading.get();
        if (m_motion)
            m_building = m_session.build(*m_motion);
        else
            m_failed = m_file;
    }
    bool changed = false;
    if (isReady(m_building)) {
        bool built = false;
        try {
            built = m_building.get();
        } catch (const std::exception&) {
            built = false;  // finish says what became of the file
        }
        if (!m_session.finish(std::move(*m_motion), built))
            m_failed = m_file;
        m_motion.reset();
        changed = true;
    }
    if (!m_reading.valid() && !m_building.valid())
        start();
    return changed;
}

}  // namespace KivPlayer
