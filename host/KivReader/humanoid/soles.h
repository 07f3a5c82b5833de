#pragma once

#include <osg/Vec3d>

#include <cstdint>
#include <string>

#include "host/KivReader/humanoid/posedbody.h"

namespace KivReader {

/// How a foot lies in its own joint's frame, from the poses in which it stands on the ground.
struct Sole
{
    osg::Vec3d up;       ///< length 1
    osg::Vec3d forward;  ///< length 1, at a right angle to up
};

/// @param usual from the foot's frame to the avatar's, as the foot mostly is against the shin: what counts
/// where its own joints or the ground do not tell.
Sole soleOf(const PosedBody& body, const std::string& side, const osg::Quat& usual);

/// The joint that the foot's toes begin at, or the end of the foot where it has none; -1 where it has
/// neither.
std::int32_t toesOf(const MotionFigure& figure, std::size_t foot);

}  // namespace KivReader
