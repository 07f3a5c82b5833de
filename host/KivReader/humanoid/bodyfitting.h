#pragma once

#include "KivReader/humanoidprofile.h"
#include "host/KivReader/humanoid/humanoidmeasure.h"

namespace KivReader {

/// The figure with the avatar's joints that moves as the file's person does. What was done, and why, goes
/// into the record.
MotionFigure fitBody(const MatchedMotion& motion, const ProfileOptions& options, ProfileRecord& record);

}  // namespace KivReader
