#pragma once

#include <functional>
#include <future>
#include <string>
#include <vector>

#include "apps/kivplayer/session/session.h"
#include "apps/kivplayer/support/console.h"

namespace KivPlayer {

/// Commands that the window has handed over and not heard of yet. On the thread of the frame loop, the gate
/// open.
class PendingCommands
{
public:
    PendingCommands(Session& session, Console& console) : m_session(session), m_console(console) {}

    /// @param what for people, should it fail.
    /// @param then is called by takeAnswers.
    void send(const std::string& what, const Session::Attach& attach,
              const std::function<void(bool)>& then = {});

    /// Never waits. @return what could not be done.
    std::vector<std::string> takeAnswers();

    std::size_t count() const { return m_pending.size(); }

private:
    struct Pending
    {
        std::future<bool> answer;
        std::string what;
        std::function<void(bool)> then;
    };

    Session& m_session;
    Console& m_console;
    std::vector<Pending> m_pending;
};

}  // namespace KivPlayer
