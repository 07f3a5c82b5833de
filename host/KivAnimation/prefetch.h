#pragma once

#include <cstddef>

namespace KivAnimation {

/// Asks the processor to bring this memory nearer, all of it, because it will be written soon. Only time
/// depends on it; any address is allowed.
#if defined(__GNUC__)
inline void prefetchForWriting(const void* memory, std::size_t bytes)
{
    constexpr std::size_t kCacheLine = 64;
    const char* const first = static_cast<const char*>(memory);
    for (std::size_t i = 0; i < bytes; i += kCacheLine) {
        __builtin_prefetch(first + i, 1);
    }
    if (bytes > 1) {
        __builtin_prefetch(first + bytes - 1, 1);
    }
    // Without it the compiler takes this for a function without effect, and drops calls of it.
    __asm__ volatile("");
}
#else
inline void prefetchForWriting(const void*, std::size_t) {}
#endif

}  // namespace KivAnimation
