#include "apps/kivplayer/stage/bonemesh.h"

#include <array>
#include <cmath>
#include <vector>

namespace KivPlayer {

namespace {

/// Where a bone is thickest, as a share of its length from the parent's end.
constexpr double kWaist = 0.18;

/// A ball of 32 triangles about the origin, radius 1.
struct Ball
{
    std::vector<osg::Vec3d> positions;
    std::vector<unsigned> corners;

    Ball()
    {
        for (const double x : {-1.0, 1.0})
            for (const double y : {-1.0, 1.0})
                for (const double z : {-1.0, 1.0})
                    addOctant({x, 0, 0}, {0, y, 0}, {0, 0, z}, x * y * z > 0.0);
    }

private:
    void addOctant(const osg::Vec3d& x, const osg::Vec3d& y, const osg::Vec3d& z, bool direct)
    {
        const auto base = static_cast<unsigned>(positions.size());
        for (osg::Vec3d position : {x, y, z, x + y, y + z, z + x}) {
            position.normalize();
            positions.push_back(position);
        }
        const unsigned triangles[4][3] = {{0, 3, 5}, {3, 1, 4}, {5, 4, 2}, {3, 4, 5}};
        for (const auto& [a, b, c] : triangles)
            for (const unsigned corner : {a, direct ? b : c, direct ? c : b})
                corners.push_back(base + corner);
    }
};

}  // namespace

BoneMesh::BoneMesh()
    : m_spGeometry(new osg::Geometry),
      m_spPositions(new osg::Vec3Array(osg::Array::BIND_PER_VERTEX)),
      m_spNormals(new osg::Vec3Array(osg::Array::BIND_PER_VERTEX)),
      m_spColours(new osg::Vec4ubArray(osg::Array::BIND_PER_VERTEX)),
      m_spCorners(new osg::DrawElementsUInt(GL_TRIANGLES))
{
    m_spColours->setNormalize(true);
    m_spGeometry->setDataVariance(osg::Object::DYNAMIC);
    m_spGeometry->setUseDisplayList(false);
    m_spGeometry->setUseVertexBufferObjects(true);
    m_spGeometry->setVertexArray(m_spPositions);
    m_spGeometry->setNormalArray(m_spNormals);
    m_spGeometry->setColorArray(m_spColours);
    m_spGeometry->addPrimitiveSet(m_spCorners);
}

void BoneMesh::clear()
{
    m_spPositions->clear();
    m_spNormals->clear();
    m_spColours->clear();
    m_spCorners->clear();
}

void BoneMesh::addTriangle(const osg::Vec3d& a, const osg::Vec3d& b, const osg::Vec3d& c,
                           const osg::Vec4ub& colour)
{
    osg::Vec3d normal = (b - a) ^ (c - a);
    normal.normalize();
    for (const osg::Vec3d& position : {a, b, c}) {
        m_spCorners->push_back(static_cast<GLuint>(m_spPositions->size()));
        m_spPositions->push_back(position);
        m_spNormals->push_back(normal);
        m_spColours->push_back(colour);
    }
}

void BoneMesh::addBone(const osg::Vec3d& from, const osg::Vec3d& to, double width, const osg::Vec4ub& colour)
{
    osg::Vec3d along = to - from;
    if (!(along.normalize() > 0.0))
        return;
    const osg::Vec3d other = std::abs(along.z()) < 0.9 ? osg::Vec3d(0, 0, 1) : osg::Vec3d(1, 0, 0);
    osg::Vec3d side = other ^ along;
    side.normalize();
    const osg::Vec3d front = along ^ side;
    const osg::Vec3d waist = from + (to - from) * kWaist;
    const std::array<osg::Vec3d, 4> rim{waist + side * (0.5 * width), waist + front * (0.5 * width),
                                        waist - side * (0.5 * width), waist - front * (0.5 * width)};
    for (std::size_t i = 0; i < rim.size(); ++i) {
        const osg::Vec3d& next = rim[(i + 1) % rim.size()];
        addTriangle(from, next, rim[i], colour);
        addTriangle(to, rim[i], next, colour);
    }
}

void BoneMesh::addDot(const osg::Vec3d& centre, double radius, const osg::Vec4ub& colour)
{
    static const Ball ball;
    const auto base = static_cast<GLuint>(m_spPositions->size());
    for (const osg::Vec3d& position : ball.positions) {
        m_spPositions->push_back(centre + position * radius);
        m_spNormals->push_back(position);
        m_spColours->push_back(colour);
    }
    for (const unsigned corner : ball.corners)
        m_spCorners->push_back(base + corner);
}

void BoneMesh::finish()
{
    m_spPositions->dirty();
    m_spNormals->dirty();
    m_spColours->dirty();
    m_spCorners->dirty();
    m_spGeometry->dirtyBound();
}

}  // namespace KivPlayer
