#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends a fuzzed program where what must hold does not; the fuzzer keeps the input.
#define KIV_EXPECT(condition)                                                                   \
    do {                                                                                        \
        if (!(condition)) {                                                                     \
            std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #condition); \
            std::abort();                                                                       \
        }                                                                                       \
    } while (false)
