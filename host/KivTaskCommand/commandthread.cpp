#include "KivTaskCommand/commandthread.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

#include "host/KivTaskCommand/commandstages.h"

namespace KivTaskCommand {

struct CommandThread::Worker
{
    struct Job
    {
        std::unique_ptr<TaskCommand> command;
        std::promise<bool> answer;
    };

    explicit Worker(SceneGate& sceneGate) : gate(sceneGate), thread([this] { work(); }) {}

    ~Worker()
    {
        {
            const std::lock_guard<std::mutex> lock(mutex);
            closing = true;
        }
        changed.notify_one();
        thread.join();
    }

    bool takeNext(Job& job)
    {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [this] { return closing || !jobs.empty(); });
        if (jobs.empty()) {
            return false;
        }
        job = std::move(jobs.front());
        jobs.pop_front();
        running = true;
        return true;
    }

    void work()
    {
        for (Job job; takeNext(job);) {
            bool succeeded = false;
            std::exception_ptr failure;
            try {
                succeeded = runGated(*job.command);
            } catch (...) {
                failure = std::current_exception();
            }
            job.command.reset();
            {
                const std::lock_guard<std::mutex> lock(mutex);
                running = false;
            }
            if (failure) {
                job.answer.set_exception(std::exchange(failure, nullptr));
            } else {
                job.answer.set_value(succeeded);
            }
        }
    }

    bool runGated(const TaskCommand& command)
    {
        return command.cmdExcImp() && runCommandStages(*command.cmdExcImp(), [this](const auto& execute) {
                   const SceneGate::Pass pass(gate);
                   execute();
               });
    }

    SceneGate& gate;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Job> jobs;
    bool closing = false;
    bool running = false;
    std::thread thread;  // last: it uses all of the above from its first moment on
};

CommandThread::CommandThread(SceneGate& gate) : m_spWorker(std::make_unique<Worker>(gate)) {}

CommandThread::~CommandThread() = default;

std::future<bool> CommandThread::submit(std::unique_ptr<TaskCommand> command)
{
    Worker::Job job;
    job.command = std::move(command);
    std::future<bool> answer = job.answer.get_future();
    if (!job.command) {
        job.answer.set_value(false);
        return answer;
    }
    {
        const std::lock_guard<std::mutex> lock(m_spWorker->mutex);
        m_spWorker->jobs.push_back(std::move(job));
    }
    m_spWorker->changed.notify_one();
    return answer;
}

bool CommandThread::busy() const
{
    const std::lock_guard<std::mutex> lock(m_spWorker->mutex);
    return m_spWorker->running || !m_spWorker->jobs.empty();
}

}  // namespace KivTaskCommand
