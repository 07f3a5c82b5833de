#include "tools/makeavatar/field.h"

#include <algorithm>
#include <cmath>
#include <osg/Math>
#include <osg/Quat>

namespace KivAvatarMaker {

using osg::Vec3d;

namespace {

// Below both values by up to width/4 where they meet, equal to the smaller one where they differ by more than
// width.
double smoothMinimum(double a, double b, double width)
{
    const double overlap = std::max(width - std::abs(a - b), 0.0) / std::max(width, 1e-9);
    return std::min(a, b) - overlap * overlap * width * 0.25;
}

double smoothMaximum(double a, double b, double width)
{
    return -smoothMinimum(-a, -b, width);
}

Vec3d divided(const Vec3d& v, const Vec3d& by)
{
    return {v.x() / by.x(), v.y() / by.y(), v.z() / by.z()};
}

}  // namespace

Field ball(const Vec3d& centre, double radius)
{
    return [=](const Vec3d& p) { return (p - centre).length() - radius; };
}

Field ellipsoid(const Vec3d& centre, const Vec3d& radii)
{
    return [=](const Vec3d& p) {
        const Vec3d unit = divided(p - centre, radii);
        const double slope = divided(unit, radii).length();
        if (slope < 1e-9)
            return -std::min({radii.x(), radii.y(), radii.z()});
        return unit.length() * (unit.length() - 1.0) / slope;
    };
}

Field limb(const Vec3d& from, double fromRadius, const Vec3d& to, double toRadius)
{
    const Vec3d along = to - from;
    return [=](const Vec3d& p) {
        const double t = std::clamp((p - from) * along / along.length2(), 0.0, 1.0);
        return (p - from - along * t).length() - (fromRadius + (toRadius - fromRadius) * t);
    };
}

Field roundedBox(const Vec3d& centre, const Vec3d& half, double edgeRadius)
{
    return [=](const Vec3d& p) {
        const Vec3d d = p - centre;
        const Vec3d q(std::abs(d.x()) - half.x() + edgeRadius, std::abs(d.y()) - half.y() + edgeRadius,
                      std::abs(d.z()) - half.z() + edgeRadius);
        const Vec3d out(std::max(q.x(), 0.0), std::max(q.y(), 0.0), std::max(q.z(), 0.0));
        return out.length() + std::min(std::max({q.x(), q.y(), q.z()}), 0.0) - edgeRadius;
    };
}

Field halfSpace(const Vec3d& point, const Vec3d& normal)
{
    Vec3d unit = normal;
    unit.normalize();
    return [=](const Vec3d& p) { return (p - point) * unit; };
}

Field blended(const std::vector<Field>& bodies, double width)
{
    return [=](const Vec3d& p) {
        double value = bodies.front()(p);
        for (std::size_t i = 1; i < bodies.size(); ++i)
            value = smoothMinimum(value, bodies[i](p), width);
        return value;
    };
}

Field common(const Field& body, const Field& other, double width)
{
    return [=](const Vec3d& p) { return smoothMaximum(body(p), other(p), width); };
}

Field carved(const Field& body, const Field& tool, double width)
{
    return [=](const Vec3d& p) { return smoothMaximum(body(p), -tool(p), width); };
}

Field turned(const Field& body, const Vec3d& pivot, const Vec3d& axis, double degrees)
{
    const osg::Quat back(-osg::DegreesToRadians(degrees), axis);
    return [=](const Vec3d& p) { return body(pivot + back * (p - pivot)); };
}

Field onBothSides(const Field& body, double width)
{
    return [=](const Vec3d& p) { return smoothMinimum(body(p), body(Vec3d(-p.x(), p.y(), p.z())), width); };
}

Vec3d outward(const Field& body, const Vec3d& point)
{
    constexpr double kStep = 0.02;
    Vec3d gradient;
    for (int i = 0; i < 3; ++i) {
        Vec3d step;
        step[i] = kStep;
        gradient[i] = body(point + step) - body(point - step);
    }
    gradient.normalize();
    return gradient;
}

}  // namespace KivAvatarMaker
