#pragma once

#include <string>

#include "host/KivReader/figure/motionfigure.h"
#include "host/KivReader/humanoid/jointmatching.h"

namespace KivReader {

/// Why the joints between two of the avatar's are too many to be folded; empty where they are not.
std::string crowding(const JointMatching& matching, const MotionFigure& figure);

}  // namespace KivReader
