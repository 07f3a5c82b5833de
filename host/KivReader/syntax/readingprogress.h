#pragma once

#include <cstddef>

namespace KivReader {

/// Seldom enough to cost a reading nothing, often enough for somebody who waits.
constexpr std::size_t kBytesBetweenReports = 256 * 1024;

/// Tell the listener, if there is one.
void reportReading(std::size_t bytes, std::size_t of);
void reportReadingEnded();

}  // namespace KivReader
