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

/// Without the poses of these frames, which ascend; with all of them where none would be left.
void leaveOut(PoseSample& sample, const std::vector<std::size_t>& frames);

/// The same poses as those of the figure that is made with this frame, of poses that were taken from one that
/// is made with the default one.
PoseSample inFrame(PoseSample sample, const FileFrame& frame);

}  // namespace KivReader
