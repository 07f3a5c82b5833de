#pragma once

#include <osg/Array>
#include <osg/BoundingBox>
#include <osg/Geometry>
#include <osg/Group>
#include <osg/Vec3d>
#include <osg/ref_ptr>

namespace KivPlayer {

/// The floor of a stage, the plane z = 0. What figures may darken is a rectangle around them with a costly
/// shader; the rest, most of a picture, is drawn with a cheap one that agrees with it at the border.
/// Changed between frames.
class Ground
{
public:
    Ground();

    osg::Group* root() const { return m_spRoot; }
    /// The rectangle around the figures, and what lies around that.
    osg::StateSet& nearState() const { return *m_spNear->getOrCreateStateSet(); }
    osg::StateSet& farState() const { return *m_spFar->getOrCreateStateSet(); }

    /// The square that there is ground on.
    void layOut(const osg::Vec3d& centre, double half);
    /// Where the figures are now, and the direction to the light that casts their shadows.
    void surround(const osg::BoundingBox& figures, const osg::Vec3d& key);

private:
    void setCorners(int first, const osg::BoundingBoxd& rectangle);

    osg::ref_ptr<osg::Group> m_spRoot;
    osg::ref_ptr<osg::Vec3Array> m_spCorners;  ///< four of the square, four of the rectangle
    osg::ref_ptr<osg::Geometry> m_spNear;
    osg::ref_ptr<osg::Geometry> m_spFar;
    osg::BoundingBoxd m_square;
};

}  // namespace KivPlayer
