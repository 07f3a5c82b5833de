#pragma once

#include <malloc.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace KivTestSupport {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kHeapIsMeasured =
    false;  ///< a sanitizer's allocator keeps freed memory and answers no mallinfo2
#else
constexpr bool kHeapIsMeasured = true;
#endif

/// Bytes that the program has allocated and not freed, in all arenas.
inline double heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

/// The slope of a straight line through (x, y) pairs, by least squares.
inline double slope(const std::vector<std::pair<double, double>>& points)
{
    double meanX = 0, meanY = 0;
    for (const auto& [x, y] : points) {
        meanX += x / static_cast<double>(points.size());
        meanY += y / static_cast<double>(points.size());
    }
    double covariance = 0, variance = 0;
    for (const auto& [x, y] : points) {
        covariance += (x - meanX) * (y - meanY);
        variance += (x - meanX) * (x - meanX);
    }
    return variance > 0 ? covariance / variance : 0;
}

}  // namespace KivTestSupport
