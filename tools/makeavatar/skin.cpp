#include "tools/makeavatar/skin.h"

#include <algorithm>
#include <cmath>
#include <osg/Math>
#include <stdexcept>

namespace KivAvatarMaker {

using osg::Vec3d;

namespace {

constexpr double kFarthest = 40.0;
constexpr double kStride = 0.05;

// From outside inwards, so that a shallow hollow cannot stop the ray early.
Vec3d leavingPoint(const Field& body, const Vec3d& origin, const Vec3d& direction)
{
    double outside = kFarthest;
    while (outside > 0 && body(origin + direction * outside) > 0)
        outside -= kStride;
    if (outside <= 0)
        throw std::logic_error("a net's axis leaves its body");
    double inside = outside;
    outside += kStride;
    for (int i = 0; i < 40; ++i) {
        const double middle = 0.5 * (inside + outside);
        (body(origin + direction * middle) > 0 ? outside : inside) = middle;
    }
    return origin + direction * (0.5 * (inside + outside));
}

class Rays
{
public:
    explicit Rays(const Net& net) : m_net(net), m_along(net.to - net.from), m_front(net.front)
    {
        m_along.normalize();
        m_front -= m_along * (m_front * m_along);
        m_front.normalize();
        m_side = m_along ^ m_front;
    }

    Vec3d along() const { return m_along; }

    // share: 0 at the first pole, 1 at the last one
    Vec3d origin(double share) const
    {
        const double cap = m_net.capShare;
        const double t = cap >= 0.5 ? 0.5 : std::min(std::max((share - cap) / (1 - 2 * cap), 0.0), 1.0);
        return m_net.from + (m_net.to - m_net.from) * t;
    }

    Vec3d direction(double share, unsigned column) const
    {
        const double cap = m_net.capShare;
        double lift = 0;
        if (share < cap)
            lift = -osg::PI_2 * drawnToRim(1 - share / cap, m_net.flatFrom);
        else if (share > 1 - cap)
            lift = osg::PI_2 * drawnToRim((share - 1 + cap) / cap, m_net.flatTo);
        return m_along * std::sin(lift) + around(column) * std::cos(lift);
    }

private:
    static double drawnToRim(double part, bool flat) { return flat ? part * part : part; }

    double turn(unsigned column) const
    {
        const double all = m_net.columns;
        const double front = m_net.frontColumns ? m_net.frontColumns : all / 2;
        if (column <= front / 2)
            return osg::PI_2 * std::pow(2 * column / front, m_net.focus);
        if (column >= all - front / 2)
            return 2 * osg::PI - osg::PI_2 * std::pow(2 * (all - column) / front, m_net.focus);
        return osg::PI_2 + osg::PI * (column - front / 2) / (all - front);
    }

    Vec3d around(unsigned column) const
    {
        const double angle = turn(column);
        Vec3d radial = m_front * std::cos(angle) + m_side * (m_net.flatness * std::sin(angle));
        radial.normalize();
        return radial;
    }

    Net m_net;
    Vec3d m_along, m_front, m_side;
};

// The diagonals of the two halves mirror each other, so that a body with two equal sides is drawn alike on
// both.
void addNetTriangles(Mesh& mesh, unsigned rings, unsigned columns)
{
    const unsigned last = rings * columns + 1;
    const auto at = [=](unsigned ring, unsigned column) { return 1 + ring * columns + column % columns; };
    for (unsigned column = 0; column < columns; ++column) {
        mesh.indices.insert(mesh.indices.end(), {0, at(0, column + 1), at(0, column)});
        for (unsigned ring = 0; ring + 1 < rings; ++ring) {
            const unsigned a = at(ring, column), b = at(ring, column + 1);
            const unsigned c = at(ring + 1, column), d = at(ring + 1, column + 1);
            if (column < columns / 2)
                mesh.indices.insert(mesh.indices.end(), {a, b, d, a, d, c});
            else
                mesh.indices.insert(mesh.indices.end(), {a, b, c, b, d, c});
        }
        mesh.indices.insert(mesh.indices.end(), {at(rings - 1, column), at(rings - 1, column + 1), last});
    }
}

}  // namespace

Mesh skinned(const Field& body, const Net& net, const osg::Vec4f& colour)
{
    Mesh mesh;
    const Rays rays(net);
    const auto add = [&](const Vec3d& origin, const Vec3d& direction) {
        const Vec3d position = leavingPoint(body, origin, direction);
        mesh.vertices.push_back({position, outward(body, position), colour});
    };
    add(net.from, -rays.along());
    for (unsigned ring = 0; ring < net.rings; ++ring) {
        const double share = (ring + 1.0) / (net.rings + 1.0);
        for (unsigned column = 0; column < net.columns; ++column)
            add(rays.origin(share), rays.direction(share, column));
    }
    add(net.to, rays.along());
    addNetTriangles(mesh, net.rings, net.columns);
    return mesh;
}

Mesh ballMesh(const Vec3d& centre, double radius, unsigned rings, unsigned columns, const osg::Vec4f& colour)
{
    Net net;
    net.from = centre - Vec3d(0, radius * 1e-3, 0);
    net.to = centre + Vec3d(0, radius * 1e-3, 0);
    net.front = Vec3d(0, 0, 1);
    net.rings = rings;
    net.columns = columns;
    net.capShare = 0.5;
    return skinned(ball(centre, radius), net, colour);
}

Mesh rodMesh(const Vec3d& from, double fromRadius, const Vec3d& to, double toRadius, const osg::Vec4f& colour)
{
    const Vec3d along = to - from;
    Net net;
    net.from = from;
    net.to = to;
    net.front = std::abs(along.y()) < std::abs(along.x()) ? Vec3d(0, 1, 0) : Vec3d(0, 0, 1);
    net.rings = 7;
    net.columns = 10;
    net.capShare = 0.4;
    return skinned(limb(from, fromRadius, to, toRadius), net, colour);
}

}  // namespace KivAvatarMaker
