// Rotations by degrees, in OSG's order: in a product the left factor turns first.
#pragma once

#include <osg/Math>
#include <osg/Quat>
#include <osg/Vec3d>

namespace KivMotion {

inline osg::Quat aboutX(double degrees)
{
    return {osg::DegreesToRadians(degrees), osg::Vec3d(1, 0, 0)};
}
inline osg::Quat aboutY(double degrees)
{
    return {osg::DegreesToRadians(degrees), osg::Vec3d(0, 1, 0)};
}
inline osg::Quat aboutZ(double degrees)
{
    return {osg::DegreesToRadians(degrees), osg::Vec3d(0, 0, 1)};
}

/// Heading (positive turns left), nod (positive looks up) and lean (positive lifts the left side), outermost
/// first, for a body that faces +Z with its left at +X.
struct Attitude
{
    double yaw = 0;
    double pitch = 0;
    double roll = 0;

    osg::Quat rotation() const { return aboutZ(roll) * aboutX(-pitch) * aboutY(yaw); }
};

/// The same rotation seen in a mirror between left and right.
inline osg::Quat mirrored(const osg::Quat& q)
{
    return {q.x(), -q.y(), -q.z(), q.w()};
}
inline osg::Vec3d mirrored(const osg::Vec3d& v)
{
    return {-v.x(), v.y(), v.z()};
}

/// The given part of a rotation, 0 being none of it.
inline osg::Quat partOf(const osg::Quat& whole, double part)
{
    osg::Quat result;
    result.slerp(part, osg::Quat(), whole);
    return result;
}

}  // namespace KivMotion
