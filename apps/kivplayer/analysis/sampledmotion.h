#pragma once

#include <osg/BoundingBox>
#include <osg/Vec3d>

#include <cstddef>
#include <utility>
#include <vector>

#include "KivAnimation/animation.h"
#include "apps/kivplayer/content/dressedactor.h"

namespace KivPlayer {

/// The joints of one actor at times spread evenly over its motion. Scene units.
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

/// Times spread evenly from one to the other, seconds, without those that lie on or beside a thrown frame.
/// @param thrown the frames, ascending, that show the figure where it cannot have been.
/// @return one time at least.
std::vector<double> sampleTimes(double from, double to, double frameTime,
                                const std::vector<std::size_t>& thrown);

/// Poses the actor alone, again and again, and leaves it in its last pose. Between frames.
/// @param animation null: the actor stands still.
/// @param thrown as for sampleTimes.
/// @param span seconds from the actor's first frame; held within the motion.
SampledMotion sampleMotion(const DressedActor& actor, KivAnimation::Animation* animation,
                           const std::pair<double, double>& span,
                           const std::vector<std::size_t>& thrown = {});

/// The first joint with "Head" in its name, else the highest joint.
osg::Vec3d headOf(const std::vector<DressedActor::Joint>& joints, const std::vector<osg::Vec3d>& positions);

}  // namespace KivPlayer
