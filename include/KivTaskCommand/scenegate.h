#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

#include "KivCommonDef/sharedlibrary.h"

namespace KivTaskCommand {

/// The one place that says when the scene graph may be changed.
///
/// A frame loop closes the gate around every frame and opens it in between; whoever changes the scene
/// enters and leaves. A new gate stands open, so a host without a frame loop needs nothing more. Entrants
/// pass one at a time in the order in which they came, and each opening lets at least the longest waiting
/// one through: nobody starves.
///
///     while (!viewer.done()) {
///         gate.close();
///         viewer.frame();
///         gate.open();
///     }
///
/// All operations may be called from any thread; open and close belong to one frame loop.
class KIV_TASKCOMMAND_API SceneGate
{
public:
    SceneGate();
    ~SceneGate();
    SceneGate(const SceneGate&) = delete;
    SceneGate& operator=(const SceneGate&) = delete;

    /// Lets waiting entrants through, from now until close().
    void open();

    /// Serves the one that waits longest, then further ones while the budget lasts, and returns once nobody
    /// is inside; from then on the scene belongs to the frame loop.
    /// @param budget how long, from the call on, further waiting entrants may still be let in.
    void close(std::chrono::microseconds budget = std::chrono::microseconds(1000));

    /// Waits for the gate and this caller's turn; the scene may be changed until leave(). Not recursive.
    void enter();
    void leave();

    /// How many callers wait to enter.
    std::size_t waiting() const;

    /// Holds the gate for the length of a scope.
    class Pass
    {
    public:
        explicit Pass(SceneGate& gate) : m_gate(gate) { m_gate.enter(); }
        ~Pass() { m_gate.leave(); }
        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;

    private:
        SceneGate& m_gate;
    };

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::uint64_t m_nextTicket = 0;    ///< given to the next entrant
    std::uint64_t m_servedTicket = 0;  ///< whose turn it is
    std::uint64_t m_admitBelow = 0;    ///< while closing: tickets below this still pass
    bool m_open = true;
    bool m_inside = false;
};

}  // namespace KivTaskCommand
