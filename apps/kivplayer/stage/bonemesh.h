#pragma once

#include <osg/Geometry>
#include <osg/Vec4ub>
#include <osg/ref_ptr>

namespace KivPlayer {

/// One geometry of many bones and joint dots, refilled for every frame. Scene units.
class BoneMesh
{
public:
    BoneMesh();

    osg::Geometry* geometry() const { return m_spGeometry; }

    void clear();
    /// A slim octahedron; nothing where both ends are one point.
    /// @param width from edge to edge across its thickest point.
    void addBone(const osg::Vec3d& from, const osg::Vec3d& to, double width, const osg::Vec4ub& colour);
    void addDot(const osg::Vec3d& centre, double radius, const osg::Vec4ub& colour);
    /// What was added since clear() is what the geometry shows.
    void finish();

private:
    void addTriangle(const osg::Vec3d& a, const osg::Vec3d& b, const osg::Vec3d& c,
                     const osg::Vec4ub& colour);

    osg::ref_ptr<osg::Geometry> m_spGeometry;
    osg::ref_ptr<osg::Vec3Array> m_spPositions;
    osg::ref_ptr<osg::Vec3Array> m_spNormals;
    osg::ref_ptr<osg::Vec4ubArray> m_spColours;
    osg::ref_ptr<osg::DrawElementsUInt> m_spCorners;
};

}  // namespace KivPlayer
