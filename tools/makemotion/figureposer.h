// From the words of a BodyPose to the joints of a figure.
#pragma once

#include "tools/makemotion/bodypose.h"
#include "tools/makemotion/pose.h"

namespace KivMotion {

/// The joints' rotations that put the figure into the pose.
Pose poseFigure(const Rig& rig, const BodyPose& body);

/// Turns a whole figure about the vertical through the origin by `yaw` degrees, then moves it.
void placeFigure(Pose& pose, double yaw, const osg::Vec3d& shift);

/// The highest the pelvis may be so that a leg reaches its foot with the given share of its length.
double highestPelvis(const Rig& rig, const BodyPose& body, Side side, double share);

}  // namespace KivMotion
