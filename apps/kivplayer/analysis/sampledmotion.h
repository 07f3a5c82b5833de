#pragma once

#include <osg/BoundingBox>
#include <osg/Vec3d>

#include <cstddef>
#include <utility>
#include <vector>

#include "KivAnimation/animation.h"
#include "apps/kivplayer/content/dressedactor.h"

namespace KivPlayer {

/// Where the motion of one actor leads: its joints at some moments of it. Scene units.
struct SampledMotion
{
    std::size_t joints = 0;
    std::vector<osg::Vec3d> positions;  ///< moment by moment
    std::vector<osg::Vec3d> heads;      ///< what a name label floats above, one for each moment
    osg::Vec3d front;                   ///< sum of the directions that the figure faces, of length 1 each
    osg::BoundingBox box;

    std::size_t moments() const { return heads.size(); }

    /// Positions and heads, each taken from the point of the ground below the root joint of its moment.
    std::vector<osg::Vec3d> positionsOverGround() const;
    std::vector<osg::Vec3d> headsOverGround() const;
};

/// The point of the ground below a position.
osg::Vec3d groundBelow(const osg::Vec3d& position);

/// Poses the actor alone, again and again, and leaves it in its last pose. Between frames.
/// @param animation null: the actor stands still.
/// @param span seconds from the actor's first frame; held within the motion.
SampledMotion sampleMotion(const DressedActor& actor, KivAnimation::Animation* animation,
                           const std::pair<double, double>& span);

/// The first joint whose name tells of a head, else the highest joint.
osg::Vec3d headOf(const std::vector<DressedActor::Joint>& joints, const std::vector<osg::Vec3d>& positions);

}  // namespace KivPlayer
