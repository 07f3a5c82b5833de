#include "host/KivReader/humanoid/restaxes.h"

#include <osg/Matrixd>

#include <cmath>

namespace KivReader {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kOpposite = -0.9998;  ///< cosine: within about a degree of it
constexpr double kTellingSine = 0.2;   ///< between the directions of a pair

osg::Vec3d unit(osg::Vec3d vector)
{
    vector.normalize();
    return vector;
}

/// From the axes of the space to those of the pair.
osg::Quat axesOf(const Pair& pair)
{
    const osg::Vec3d x = unit(pair.first);
    const osg::Vec3d z = unit(x ^ pair.second);
    const osg::Vec3d y = z ^ x;
    const osg::Matrixd axes(x.x(), x.y(), x.z(), 0, y.x(), y.y(), y.z(), 0, z.x(), z.y(), z.z(), 0, 0, 0, 0,
                            1);
    return axes.getRotate();
}

}  // namespace

osg::Quat leastTurn(const osg::Vec3d& from, const osg::Vec3d& to, const osg::Vec3d& aboutWhenOpposite)
{
    if (from.length2() == 0.0 || to.length2() == 0.0)
        return {};
    const osg::Vec3d a = unit(from);
    const osg::Vec3d b = unit(to);
    if (a * b < kOpposite)
        return osg::Quat(kPi, aboutWhenOpposite);
    const osg::Vec3d axis = a ^ b;
    osg::Quat turn(axis.x(), axis.y(), axis.z(), 1.0 + a * b);
    return turn / turn.length();
}

bool Pair::isTelling() const
{
    return (first ^ second).length() > kTellingSine * first.length() * second.length();
}

osg::Quat turnBetween(const Pair& from, const Pair& to)
{
    return axesOf(from).conj() * axesOf(to);
}

bool isWithin(const osg::Vec3d& a, const osg::Vec3d& b, double degrees)
{
    return a * b > std::cos(degrees * kPi / 180.0) * a.length() * b.length();
}

}  // namespace KivReader
