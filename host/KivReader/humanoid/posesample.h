#pragma once

#include <cstddef>
#include <vector>

#include "KivCommonDef/sharedlibrary.h"
#include "host/KivReader/figure/figurepose.h"

namespace KivReader {

/// Whole poses of a motion, taken evenly over it.
struct PoseSample
{
    std::vector<std::size_t> frames;  ///< ascending; the first one is frame 0
    std::vector<Placements> poses;    ///< of the figure's joints, in step with the frames
};

/// @param atMost poses; fewer where the motion has fewer frames, none where it has none.
KIV_READER_API PoseSample samplePoses(const MotionDocument& document, const MotionFigure& figure,
                                      std::size_t atMost);

}  // namespace KivReader
