#pragma once

#include <osg/Vec3d>

#include <cstdint>
#include <string>

#include "host/KivReader/humanoid/posedbody.h"

namespace KivReader {

/// How a foot lies in its own joint's frame, from the poses in which it stands on the ground.
struct Sole
{
    osg::Vec3d up;       ///< length 1; 0 where the motion does not tell
    osg::Vec3d forward;  ///< length 1, at a right angle to up; 0 where nothing points ahead
};

/// @param ahead in the foot's frame: where a foot points to if its own joints do not tell; may be 0.
Sole soleOf(const PosedBody& body, const std::string& side, const osg::Vec3d& ahead);

/// The joint that the foot's toes begin at, or the end of the foot where it has none; -1 where it has
/// neither.
std::int32_t toesOf(const MotionFigure& figure, std::size_t foot);

}  // namespace KivReader
