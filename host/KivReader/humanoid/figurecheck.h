#pragma once

#include <vector>

#include "KivReader/humanoidprofile.h"
#include "host/KivReader/humanoid/humanoidmeasure.h"

namespace KivReader {

/// Looks at a fitted figure as somebody who watches it would: at where its pieces are and which way their
/// axes lie in the scene while it moves, not at what it was made from. Of figures that are no persons, or
/// that were put onto a wrong pose, some check fails.
/// @param figure has the avatar's joints, their axes the avatar's.
/// @param leftOut frames that do not count, ascending.
KIV_READER_API std::vector<ProfileRecord::Check> checkFigure(const MotionDocument& document,
                                                             const MotionFigure& figure,
                                                             const RestFigure& avatar,
                                                             const std::vector<std::size_t>& leftOut = {});

/// How many of them failed.
std::size_t failuresOf(const std::vector<ProfileRecord::Check>& checks);

}  // namespace KivReader
