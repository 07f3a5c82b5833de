#pragma once

#include <atomic>
#include <future>
#include <list>
#include <optional>
#include <string>
#include <utility>

#include "KivReader/readinglistener.h"
#include "apps/kivplayer/session/session.h"

namespace KivPlayer {

/// Loads motion files while the frame loop goes on: reads on a thread of its own, builds on the command
/// thread, and takes the finished actor in between two frames. One file after the other.
class ActorLoader
{
public:
    explicit ActorLoader(Session& session);

    /// Queues a file to become the actor of that index, in place of an earlier one.
    void load(unsigned index, const std::string& file, const std::string& name);

    /// Goes on with what is ready and never waits. Between frames, the gate open.
    /// @return whether the actors have changed.
    bool advance();

    bool isBusy() const { return m_reading.valid() || m_building.valid() || !m_waiting.empty(); }
    /// The file that is being loaded; empty where none is.
    const std::string& file() const { return m_file; }
    /// How much of it has been read, in percent: it is read here first and then, to be dressed, by the
    /// module.
    int percent() const { return m_percent; }

    /// The file that could not be loaded since the last call; the session has said why. Empty: none.
    std::string takeFailed() { return std::exchange(m_failed, {}); }

private:
    struct Wanted
    {
        unsigned index;
        std::string file;
        std::string name;
    };

    void start();

    Session& m_session;
    std::list<Wanted> m_waiting;
    std::string m_file;
    std::string m_failed;
    std::future<std::optional<MotionFile>> m_reading;
    std::optional<MotionFile> m_motion;
    std::future<bool> m_building;
    std::atomic<int> m_percent{0};
    std::atomic<bool> m_isReadAgain{false};
    KivReader::ReadingListener m_listener;
};

}  // namespace KivPlayer
