#include "apps/kivplayer/window/pendingcommands.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <utility>

namespace KivPlayer {

void PendingCommands::send(const std::string& what, const Session::Attach& attach,
                           const std::function<void(bool)>& then)
{
    m_pending.push_back({m_session.submit(attach), what, then});
}

std::vector<std::string> PendingCommands::takeAnswers()
{
    const auto waiting = [](const Pending& one) {
        return one.answer.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
    };
    const auto answered = std::stable_partition(m_pending.begin(), m_pending.end(), waiting);
    std::vector<Pending> ready(std::make_move_iterator(answered), std::make_move_iterator(m_pending.end()));
    m_pending.erase(answered, m_pending.end());
    std::vector<std::string> failed;
    for (Pending& one : ready) {
        bool done = false;
        try {
            done = one.answer.get();
        } catch (const std::exception& problem) {
            m_console.error({"", 0, 0, one.what + ": " + problem.what()});
        }
        if (!done)
            failed.push_back(one.what);
        if (one.then)
            one.then(done);
    }
    return failed;
}

}  // namespace KivPlayer
