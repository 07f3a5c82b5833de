#include "tools/makemotion/eulerangles.h"

#include <algorithm>
#include <cmath>
#include <osg/Math>
#include <osg/Matrixd>

namespace KivMotion {

namespace {

double nearest(double degrees, double previous)
{
    return degrees - 360 * std::round((degrees - previous) / 360);
}

EulerZxy nearest(const EulerZxy& angles, const EulerZxy& previous)
{
    return {nearest(angles.z, previous.z), nearest(angles.x, previous.x), nearest(angles.y, previous.y)};
}

double distance(const EulerZxy& a, const EulerZxy& b)
{
    return std::abs(a.z - b.z) + std::abs(a.x - b.x) + std::abs(a.y - b.y);
}

}  // namespace

EulerZxy toEulerZxy(const osg::Quat& rotation, const EulerZxy& previous)
{
    const osg::Matrixd m = osg::Matrixd::rotate(rotation);
    const double x = std::asin(std::clamp(m(1, 2), -1.0, 1.0));
    const double z = std::atan2(-m(1, 0), m(1, 1));
    const double y = std::atan2(-m(0, 2), m(2, 2));
    const EulerZxy plain{osg::RadiansToDegrees(z), osg::RadiansToDegrees(x), osg::RadiansToDegrees(y)};
    const EulerZxy first = nearest(plain, previous);
    const EulerZxy second = nearest({plain.z + 180, 180 - plain.x, plain.y + 180}, previous);
    return distance(second, previous) < distance(first, previous) ? second : first;
}

}  // namespace KivMotion
