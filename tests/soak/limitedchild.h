#pragma once

#include <osg/Notify>

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/soak/heapuse.h"

namespace KivTestSupport {

/// What became of a file that was read in a child process.
enum Outcome
{
    LoadedAndSound,
    Refused,
    LoadedUnsound,
    OutOfTime,
    Crashed
};

inline void limitThisProcess(unsigned int seconds)
{
    osg::setNotifyLevel(osg::ALWAYS);
    if (kHeapIsMeasured) {  // a sanitizer's shadow takes more address space than any limit
        const rlimit limit{rlim_t{4} << 30, rlim_t{4} << 30};
        setrlimit(RLIMIT_AS, &limit);
    }
    const rlimit noDump{0, 0};
    setrlimit(RLIMIT_CORE, &noDump);
    // Of the processor's time: a busy machine must not look like a loop. The alarm ends what waits for ever.
    const rlimit processorTime{seconds, seconds + 1};
    setrlimit(RLIMIT_CPU, &processorTime);
    alarm(30 * seconds);
}

/// Runs `work` in a child process that is limited in time and memory.
/// @param seconds of processor time until the child is ended.
/// @param work answers one of the first three outcomes.
template <typename Work>
Outcome inLimitedChild(unsigned int seconds, Work&& work)
{
    constexpr int kFirstExitCode = 40;  // the lower ones are those of sanitizers, too
    const pid_t child = fork();
    if (child == 0) {
        limitThisProcess(seconds);
        _exit(kFirstExitCode + work());
    }
    int status = 0;
    waitpid(child, &status, 0);
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) - kFirstExitCode : -1;
    if (code >= LoadedAndSound && code <= LoadedUnsound) {
        return static_cast<Outcome>(code);
    }
    const int signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return signal == SIGXCPU || signal == SIGALRM ? OutOfTime : Crashed;
}

}  // namespace KivTestSupport
