#pragma once

#include <cstdlib>

namespace KivTestSupport {

/// How often a test repeats itself: the variable KIV_SOAK_ROUNDS, for longer runs by hand, or the sample of
/// every build.
inline int rounds(int usual)
{
    const char* named = std::getenv("KIV_SOAK_ROUNDS");
    return named ? std::atoi(named) : usual;
}

}  // namespace KivTestSupport
