#pragma once

#include <future>
#include <memory>

#include "KivCommonDef/sharedlibrary.h"
#include "KivTaskCommand/scenegate.h"
#include "KivTaskCommand/taskcommand.h"

namespace KivTaskCommand {

/// One worker thread that runs submitted commands one at a time, in the order of submission. prepare and
/// finish run beside the rendering, execute inside the gate.
///
/// The destructor runs what was submitted, then joins. The gate must outlive the thread, and must be open
/// or be opened while the destructor waits.
class KIV_TASKCOMMAND_API CommandThread
{
public:
    explicit CommandThread(SceneGate& gate);
    ~CommandThread();
    CommandThread(const CommandThread&) = delete;
    CommandThread& operator=(const CommandThread&) = delete;

    /// Hands a command over; may be called from any thread. The command is destroyed on the worker, after
    /// its stages, before the future is ready.
    /// @return the command's answer, or the exception that a stage threw; false at once for a null command.
    std::future<bool> submit(std::unique_ptr<TaskCommand> command);

    /// True while a command runs or waits.
    bool busy() const;

private:
    struct Worker;
    std::unique_ptr<Worker> m_spWorker;
};

}  // namespace KivTaskCommand
