#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "KivCommonDef/sharedlibrary.h"
#include "host/KivReader/figure/motionfigure.h"

namespace KivReader {

/// Rows that throw the figure farther than a person can move: far from where it mostly is, and got there
/// faster than anybody moves. They are to be played as they stand, but say nothing about the figure.
/// @param joint of the figure that carries the body, such as the hips; height in the figure's units.
/// @return their frames, ascending; none where they would be more than a tenth of the motion.
KIV_READER_API std::vector<std::size_t> thrownFrames(const MotionDocument& document,
                                                     const MotionFigure& figure, std::size_t joint,
                                                     double height);

/// "frames 3 and 7 to 9", counted from 0.
std::string listOfFrames(const std::vector<std::size_t>& frames);

}  // namespace KivReader
