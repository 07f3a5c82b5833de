#pragma once

#include "host/KivReader/humanoid/humanoidmeasure.h"

namespace KivReader {

/// What has to be added to the height of everything for the soles to meet the ground; 0 where they do.
/// @param figure has the avatar's feet, its axes in them.
/// @param leftOut frames that do not count, ascending.
double groundShift(const MatchedMotion& motion, const MotionFigure& figure, double height,
                   const std::vector<std::size_t>& leftOut);

}  // namespace KivReader
