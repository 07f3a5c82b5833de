#pragma once

#include <cstddef>
#include <functional>

#include "KivCommonDef/sharedlibrary.h"

namespace KivReader {

/// While it lives, it is told how far the readings of motion texts are, whoever reads and on whatever thread:
/// for people who wait for a long one. One at a time; a second one is not told anything. What is told must be
/// quick and must not read.
class KIV_READER_API ReadingListener
{
public:
    /// @param progress told at least at every megabyte, in order: bytes that have been read, bytes of the
    ///                 text.
    /// @param ended    told once a text has been read or refused.
    ReadingListener(std::function<void(std::size_t, std::size_t)> progress, std::function<void()> ended);
    /// Waits for what is being told; nothing is told any more.
    ~ReadingListener();
    ReadingListener(const ReadingListener&) = delete;
    ReadingListener& operator=(const ReadingListener&) = delete;
};

}  // namespace KivReader
