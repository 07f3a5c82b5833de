#pragma once

#include <cstddef>
#include <cstdint>

#include "host/KivReader/syntax/textcursor.h"

namespace KivReader {

/// What stands between the word MOTION and the first row.
struct MotionHeader
{
    std::uint64_t declaredFrames = 0;  ///< as the text says it; nothing may be sized by it
    std::size_t framesOffset = 0;
    double frameTime = 0.0;  ///< seconds
    std::size_t frameTimeOffset = 0;
    bool frameTimeWasZero = false;  ///< frameTime is 1/30 instead
};

/// Throws ParseError.
MotionHeader readMotionHeader(TextCursor& cursor);

}  // namespace KivReader
