#pragma once

#include <osg/Camera>
#include <osg/Matrixd>
#include <osg/Texture2D>
#include <osg/Vec3d>
#include <osg/ref_ptr>

namespace KivPlayer {

/// The distances of a subtree along one direction, drawn into a texture before every frame. The subtree is
/// drawn once more but takes part in no other traversal through this view.
class DepthView
{
public:
    /// @param comparing whether the texture is looked up by comparing depths, as shadows are.
    DepthView(osg::Node* figures, int side, bool comparing);

    osg::Camera* camera() const { return m_spCamera; }
    /// Texels along an edge. Between frames.
    void setSide(int side);
    int side() const { return m_side; }
    osg::Texture2D* texture() const { return m_spTexture; }

    /// Looks along `direction` at a square of 2 × radius around the centre, from `before` ahead of the centre
    /// to `behind` it. The place is rounded to whole texels, so that edges do not crawl while figures move.
    void look(const osg::Vec3d& centre, const osg::Vec3d& direction, double radius, double before,
              double behind);

    /// From the scene to texture coordinates and depth in 0..1.
    const osg::Matrixd& toTexture() const { return m_toTexture; }

private:
    int m_side;
    osg::ref_ptr<osg::Camera> m_spCamera;
    osg::ref_ptr<osg::Texture2D> m_spTexture;
    osg::Matrixd m_toTexture;
};

}  // namespace KivPlayer
