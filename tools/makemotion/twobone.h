// A limb of two bones that reaches for a point: thigh and shin, upper arm and forearm.
#pragma once

#include <osg/Quat>
#include <osg/Vec3d>

namespace KivMotion {

struct TwoBoneLimb
{
    osg::Vec3d upper;     ///< from the first joint to the middle one, at rest
    osg::Vec3d lower;     ///< from the middle joint to the last one, at rest
    osg::Vec3d restPole;  ///< where the middle joint points when the limb bends, at rest

    double length() const { return upper.length() + lower.length(); }
};

struct TwoBoneTurn
{
    osg::Quat upper, lower;  ///< in the world
};

/// Turns the limb so that its last joint comes to `target`, or as near as it reaches without being quite
/// straight, with the middle joint towards `pole`. The limb bends one way only.
TwoBoneTurn reach(const TwoBoneLimb& limb, const osg::Vec3d& root, const osg::Vec3d& target,
                  const osg::Vec3d& pole);

}  // namespace KivMotion
