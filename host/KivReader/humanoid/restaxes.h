#pragma once

#include <osg/Quat>
#include <osg/Vec3d>

namespace KivReader {

/// The smallest turn that takes one direction to another; no turn where one of them is none.
/// @param aboutWhenOpposite the axis of the half turn between opposite directions.
osg::Quat leastTurn(const osg::Vec3d& from, const osg::Vec3d& to, const osg::Vec3d& aboutWhenOpposite);

/// A pair of directions: the first one counts as it is, the second one says which way is round about it.
struct Pair
{
    osg::Vec3d first, second;

    bool isTelling() const;
};

/// The turn that takes one telling pair to another.
osg::Quat turnBetween(const Pair& from, const Pair& to);

/// An angle-wise test that shrugs off missing directions.
bool isWithin(const osg::Vec3d& a, const osg::Vec3d& b, double degrees);

}  // namespace KivReader
