// Walking: some steps ahead from a stand to a stand.
#pragma once

#include <vector>

#include "tools/makemotion/bodypose.h"
#include "tools/makemotion/pose.h"

namespace KivMotion {

struct WalkStyle
{
    double start = 0.9;        ///< the first toes leave the ground, seconds
    double stepTime = 0.54;    ///< from one step to the next, seconds
    double stepLength = 64;    ///< centimetres
    int steps = 10;            ///< the last one closes up to a stand
    Side first = Side::Right;  ///< the foot that steps first
    double armSwing = 1;       ///< 1 is usual
    double breath = 0;         ///< sets people apart

    /// When the last foot has landed.
    double end() const;
    /// How far the walk leads, centimetres.
    double distance() const;
};

/// The walk from the origin along +Z, frame by frame, `seconds` long.
std::vector<BodyPose> walkFrames(const Rig& rig, const WalkStyle& style, double seconds);

}  // namespace KivMotion
