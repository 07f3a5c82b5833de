#pragma once

#include "KivReader/motiondocument.h"

namespace KivReader {

/// Finds out whether position channels are the whole local translation or a move away from the offset, and
/// sets `positionsAreDeltas` of the joints. They replace the offset by default. A joint's are deltas where
/// its first rows are about 0 and its offset is not; what most joints below the root speak for goes before
/// that.
void detectPositionConvention(MotionDocument& document);

}  // namespace KivReader
