#include "tools/makemotion/twobone.h"

#include <algorithm>
#include <cmath>
#include <osg/Matrixd>

namespace KivMotion {

namespace {

osg::Vec3d unit(osg::Vec3d v)
{
    v.normalize();
    return v;
}

osg::Matrixd axes(const osg::Vec3d& along, const osg::Vec3d& normal)
{
    const osg::Vec3d third = along ^ normal;
    return {along.x(), along.y(), along.z(), 0, normal.x(), normal.y(), normal.z(), 0,
            third.x(), third.y(), third.z(), 0, 0,          0,          0,          1};
}

osg::Quat turn(const osg::Vec3d& restAlong, const osg::Vec3d& restPole, const osg::Vec3d& along,
               const osg::Vec3d& normal)
{
    const osg::Vec3d rest = unit(restAlong);
    const osg::Matrixd from = axes(rest, unit(rest ^ restPole));
    return (osg::Matrixd::inverse(from) * axes(along, normal)).getRotate();
}

}  // namespace

TwoBoneTurn reach(const TwoBoneLimb& limb, const osg::Vec3d& root, const osg::Vec3d& target,
                  const osg::Vec3d& pole)
{
    const double a = limb.upper.length(), b = limb.lower.length();
    const osg::Vec3d towards = unit(target - root);
    const double distance =
        std::clamp((target - root).length(), std::abs(a - b) * 1.01 + 1e-3, (a + b) * 0.9998);
    const osg::Vec3d normal = unit(towards ^ pole);
    const osg::Vec3d sideways = normal ^ towards;
    const double cosine = std::clamp((a * a + distance * distance - b * b) / (2 * a * distance), -1.0, 1.0);
    const osg::Vec3d middle = towards * (a * cosine) + sideways * (a * std::sqrt(1 - cosine * cosine));
    TwoBoneTurn result;
    result.upper = turn(limb.upper, limb.restPole, unit(middle), normal);
    result.lower = turn(limb.lower, limb.restPole, unit(towards * distance - middle), normal);
    return result;
}

}  // namespace KivMotion
