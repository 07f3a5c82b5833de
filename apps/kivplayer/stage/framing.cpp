#include "apps/kivplayer/stage/framing.h"

#include <osg/Math>

#include <algorithm>
#include <cmath>
#include <limits>

namespace KivPlayer {

namespace {

/// One pair of opposite edges: how far back the camera must stand and where between the edges it looks.
struct Span
{
    double low = -std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();

    void take(double across, double deep, double slope)
    {
        high = std::max(high, across - slope * deep);
        low = std::max(low, -across - slope * deep);
    }
    double depth(double slope, double room) const { return -0.5 * (low + high) / slope - room / slope; }
    double middle() const { return 0.5 * (high - low); }
};

}  // namespace

osg::BoundingBox boxWithGround(const std::vector<osg::Vec3d>& positions)
{
    osg::BoundingBox box;
    for (const osg::Vec3d& position : positions)
        box.expandBy(position);
    return boxWithGround(box);
}

osg::BoundingBox boxWithGround(osg::BoundingBox box)
{
    if (box.valid())
        box.expandBy(osg::Vec3d(box.center().x(), box.center().y(), 0.0));
    return box;
}

CameraPose frameAll(const std::vector<osg::Vec3d>& points, double compass, double elevation,
                    double fieldOfView, double aspect, double room)
{
    const osg::Vec3d forward(-std::cos(compass) * std::cos(elevation),
                             -std::sin(compass) * std::cos(elevation), -std::sin(elevation));
    osg::Vec3d right = forward ^ osg::Vec3d(0, 0, 1);
    right.normalize();
    const osg::Vec3d up = right ^ forward;
    const std::vector<osg::Vec3d> fallback{osg::Vec3d(-60, -60, 0), osg::Vec3d(60, 60, 180)};
    const double upSlope = std::tan(0.5 * osg::DegreesToRadians(fieldOfView));
    const double sideSlope = upSlope * aspect;
    Span upright;
    Span sideways;
    double deep = 0.0;
    const auto& shown = points.empty() ? fallback : points;
    for (const osg::Vec3d& point : shown) {
        upright.take(point * up, point * forward, upSlope);
        sideways.take(point * right, point * forward, sideSlope);
        deep += point * forward / static_cast<double>(shown.size());
    }
    const double depth = std::min(upright.depth(upSlope, room), sideways.depth(sideSlope, room));
    CameraPose pose;
    pose.eye = right * sideways.middle() + up * upright.middle() + forward * depth;
    pose.target = pose.eye + forward * std::max(deep - depth, 1.0);
    return pose;
}

}  // namespace KivPlayer
