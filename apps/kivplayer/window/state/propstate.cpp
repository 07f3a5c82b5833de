#include "apps/kivplayer/window/state/propstate.h"

#include <osg/Math>

#include <algorithm>
#include <cmath>

namespace KivPlayer {

osg::Matrixd PropState::matrix() const
{
    return osg::Matrixd::scale(scale) * osg::Matrixd::rotate(rotation) * osg::Matrixd::translate(position);
}

osg::Vec3d PropState::angles() const
{
    const osg::Matrixd turn = osg::Matrixd::rotate(rotation);
    const double y = std::asin(std::clamp(0.0 - turn(0, 2), -1.0, 1.0));
    const bool upright = std::abs(turn(0, 2)) > 1.0 - 1e-9;
    const double x = upright ? std::atan2(-turn(2, 1), turn(1, 1)) : std::atan2(turn(1, 2), turn(2, 2));
    const double z = upright ? 0.0 : std::atan2(turn(0, 1), turn(0, 0));
    return {osg::RadiansToDegrees(x), osg::RadiansToDegrees(y), osg::RadiansToDegrees(z)};
}

void PropState::turnTo(const osg::Vec3d& degrees)
{
    rotation = osg::Quat(osg::DegreesToRadians(degrees.x()), osg::Vec3d(1, 0, 0)) *
               osg::Quat(osg::DegreesToRadians(degrees.y()), osg::Vec3d(0, 1, 0)) *
               osg::Quat(osg::DegreesToRadians(degrees.z()), osg::Vec3d(0, 0, 1));
}

}  // namespace KivPlayer
