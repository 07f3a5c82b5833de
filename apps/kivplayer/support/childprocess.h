#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "apps/kivplayer/support/platform/interruption.h"

namespace KivPlayer {

/// Another program that is fed through its standard input. Started without a shell; found along PATH. A
/// program that ends early costs an answer and no signal. One that is not waited for is ended with this
/// object.
class ChildProcess
{
public:
    ChildProcess() = default;
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// What becomes of the program's standard output.
    enum class Output
    {
        Dropped,
        Kept
    };

    /// @return 0, or the system's error: ENOENT where there is no such program.
    int start(const std::string& program, const std::vector<std::string>& arguments,
              Output output = Output::Dropped);

    /// @return false where the program no longer reads.
    bool write(const void* bytes, std::size_t count);

    /// Ends its input and waits for it.
    /// @return what went wrong with it, in its own words where it said any; empty where it answered 0.
    std::string finish();

    /// Of a program that has finished: the first line of its standard error, whatever it answered, and its
    /// standard output where that was kept.
    const std::string& message() const { return m_message; }
    const std::string& output() const { return m_output; }

private:
    struct Closing
    {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    using File = std::unique_ptr<std::FILE, Closing>;

    pid_t m_process = -1;
    std::optional<RunningChild> m_running;
    int m_input = -1;
    // Files in place of pipes: nobody has to read them meanwhile.
    File m_spErrors;
    File m_spOutput;
    std::string m_message;
    std::string m_output;
};

}  // namespace KivPlayer
