#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

#include <sys/types.h>

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

    /// @return 0, or the system's error: ENOENT where there is no such program.
    int start(const std::string& program, const std::vector<std::string>& arguments);

    /// @return false where the program no longer reads.
    bool write(const void* bytes, std::size_t count);

    /// Ends its input and waits for it.
    /// @return what went wrong with it, in its own words where it said any; empty where it answered 0.
    std::string finish();

private:
    std::string said() const;

    pid_t m_process = -1;
    int m_input = -1;
    std::FILE* m_pMessages = nullptr;  ///< what it writes to its standard error
};

}  // namespace KivPlayer
