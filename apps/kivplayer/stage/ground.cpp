#include "apps/kivplayer/stage/ground.h"

#include <algorithm>

namespace KivPlayer {

namespace {

/// Joints lie inside the body, and a figure takes light from the floor around its feet: scene units.
constexpr double kFlesh = 25.0;
constexpr double kDarkened = 36.0;

osg::ref_ptr<osg::Geometry> makePart(osg::Vec3Array* corners, const char* name,
                                     std::initializer_list<GLubyte> triangles)
{
    osg::ref_ptr<osg::Geometry> part = new osg::Geometry;
    part->setName(name);
    part->setVertexArray(corners);
    part->addPrimitiveSet(
        new osg::DrawElementsUByte(GL_TRIANGLES, static_cast<unsigned>(triangles.size()), triangles.begin()));
    part->setUseDisplayList(false);
    part->setUseVertexBufferObjects(false);
    part->setDataVariance(osg::Object::DYNAMIC);
    return part;
}

}  // namespace

Ground::Ground() : m_spRoot(new osg::Group), m_spCorners(new osg::Vec3Array(8))
{
    m_spNear = makePart(m_spCorners, "ground near figures", {4, 5, 6, 4, 6, 7});
    m_spFar = makePart(m_spCorners, "ground",
                       {0, 1, 5, 0, 5, 4, 1, 2, 6, 1, 6, 5, 2, 3, 7, 2, 7, 6, 3, 0, 4, 3, 4, 7});
    m_spRoot->addChild(m_spNear);
    m_spRoot->addChild(m_spFar);
    layOut(osg::Vec3d(), 1.0);
}

void Ground::layOut(const osg::Vec3d& centre, double half)
{
    m_square.set(centre.x() - half, centre.y() - half, 0.0, centre.x() + half, centre.y() + half, 0.0);
    setCorners(0, m_square);
    setCorners(4, m_square);
}

void Ground::surround(const osg::BoundingBox& figures, const osg::Vec3d& key)
{
    if (!figures.valid())
        return;
    osg::BoundingBoxd dark(figures._min, figures._max);
    const double high = std::max(0.0, static_cast<double>(figures.zMax()) + kFlesh);
    const osg::Vec3d thrown = key * (-high / std::max(0.1, key.z()));
    dark.expandBy(dark._min + thrown);
    dark.expandBy(dark._max + thrown);
    const double room = kFlesh + kDarkened;
    const auto inX = [&](double x) { return std::clamp(x, m_square.xMin(), m_square.xMax()); };
    const auto inY = [&](double y) { return std::clamp(y, m_square.yMin(), m_square.yMax()); };
    setCorners(4, {inX(dark.xMin() - room), inY(dark.yMin() - room), 0.0, inX(dark.xMax() + room),
                   inY(dark.yMax() + room), 0.0});
}

void Ground::setCorners(int first, const osg::BoundingBoxd& rectangle)
{
    const osg::BoundingBoxd& r = rectangle;
    auto corner = m_spCorners->begin() + first;
    *corner++ = osg::Vec3d(r.xMin(), r.yMin(), 0.0);
    *corner++ = osg::Vec3d(r.xMax(), r.yMin(), 0.0);
    *corner++ = osg::Vec3d(r.xMax(), r.yMax(), 0.0);
    *corner++ = osg::Vec3d(r.xMin(), r.yMax(), 0.0);
    m_spCorners->dirty();
    m_spNear->dirtyBound();
    m_spFar->dirtyBound();
}

}  // namespace KivPlayer
