#include "KivTaskCommand/scenegate.h"

namespace KivTaskCommand {

SceneGate::SceneGate() = default;

SceneGate::~SceneGate() = default;

void SceneGate::open()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_open = true;
    m_changed.notify_all();
}

void SceneGate::close(std::chrono::microseconds budget)
{
    const auto deadline = std::chrono::steady_clock::now() + budget;
    std::unique_lock<std::mutex> lock(m_mutex);
    m_open = false;
    m_changed.wait(lock, [this] { return !m_inside; });
    // The longest waiting entrant passes whatever the budget: where frames follow each other without a pause,
    // the time between open and close may be too short for it to wake up in.
    while (m_nextTicket != m_servedTicket) {
        m_admitBelow = m_servedTicket + 1;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_servedTicket == m_admitBelow; });
        if (std::chrono::steady_clock::now() >= deadline) {
            break;
        }
    }
}

void SceneGate::enter()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const std::uint64_t ticket = m_nextTicket++;
    m_changed.wait(lock, [this, ticket] {
        return ticket == m_servedTicket && !m_inside && (m_open || ticket < m_admitBelow);
    });
    m_inside = true;
}

void SceneGate::leave()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_inside = false;
    ++m_servedTicket;
    m_changed.notify_all();
}

std::size_t SceneGate::waiting() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<std::size_t>(m_nextTicket - m_servedTicket) - (m_inside ? 1 : 0);
}

}  // namespace KivTaskCommand
