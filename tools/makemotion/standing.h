// A figure that stands at ease: what every motion starts from.
#pragma once

#include <vector>

#include "tools/makemotion/bodypose.h"
#include "tools/makemotion/pose.h"

namespace KivMotion {

/// Standing on both feet at the origin, arms hanging. The pelvis is as high as relaxed knees allow.
BodyPose standingPose(const Rig& rig);

/// A hanging arm, not quite straight, palm a little backwards.
ArmAngles hangingArm();

/// Lifts shoulders and chest with the breath; `seed` sets people breathing apart.
void breathe(BodyPose& body, double time, double seed);

/// Lowers the pelvis in every frame so that no leg has to be straighter than `share` of its length, smoothly
/// over time.
void keepLegsInReach(const Rig& rig, std::vector<BodyPose>& frames, double share, int radius);

Clip makeClip(const Rig& rig, const std::vector<BodyPose>& frames);

}  // namespace KivMotion
