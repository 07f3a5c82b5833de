#pragma once

#include <optional>
#include <string>

#include "KivReader/humanoidprofile.h"
#include "host/KivReader/humanoid/humanoidmeasure.h"

namespace KivReader {

/// Finds out which of the file's axes is up, or takes the one that was asked for, and says why in the record.
/// @param raw poses of the figure that is made with the default frame.
UpAxis uprightAxis(const MatchedMotion& motion, const MotionFigure& figure, const PoseSample& raw,
                   ProfileOptions::Up asked, ProfileRecord& record);

/// None for "auto".
std::optional<UpAxis> axisAsked(ProfileOptions::Up asked);

/// The axis as people write it: "y", "-z".
std::string nameOf(UpAxis up);

}  // namespace KivReader
