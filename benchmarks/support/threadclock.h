#pragma once

#include <time.h>

namespace KivBenchmark {

/// Seconds of processor time that the calling thread has used: what other programs take is not counted.
inline double threadSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

}  // namespace KivBenchmark
