// Arms and hands of a figure.
#pragma once

#include "tools/makemotion/bodypose.h"
#include "tools/makemotion/pose.h"

namespace KivMotion {

/// Sets shoulder, arm, forearm, hand and fingers of one side; the chest must be set already.
void poseArm(const Rig& rig, const BodyPose& body, Side side, Pose& pose);

}  // namespace KivMotion
