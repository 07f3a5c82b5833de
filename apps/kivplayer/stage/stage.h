#pragma once

#include <osg/BoundingBox>
#include <osg/Group>
#include <osg/Uniform>
#include <osg/Vec4d>
#include <osg/ref_ptr>

#include <vector>

#include "apps/kivplayer/stage/depthview.h"
#include "apps/kivplayer/stage/ground.h"
#include "apps/kivplayer/stage/skeletonoverlay.h"

namespace KivPlayer {

/// How much is spent on light and shadow.
enum class StageDetail
{
    Fine,   ///< for pictures, and for windows on a graphics card
    Quick,  ///< coarser edges of the shadows: for a processor that draws by itself
    Plain   ///< no shadows but the darkness at the feet
};

/// Everything around the figures: ground with grid, backdrop, lights and their shadows. Scene units, Z-up;
/// the ground is the plane z = 0.
///
/// The figures' own subtree is only hung below the stage and never changed here. Traversed by the frame loop;
/// changed between frames.
class Stage
{
public:
    explicit Stage(osg::Group* figures);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// What a view shows: backdrop, ground and figures.
    osg::Group* root() const { return m_spRoot; }

    /// Lays the ground out for what the figures cover over the whole time that is shown.
    void setUp(const osg::BoundingBox& whole);
    /// Points the shadow-casting light at what the figures cover now.
    void light(const osg::BoundingBox& now);
    /// The compass direction from which the stage is looked at first: the key light comes from its left.
    /// @param azimuth radians, counter-clockwise from the scene's x axis, from the figures to the eye.
    void setFront(double azimuth);

    /// The part of the view that is a picture by itself, for the backdrop: its middle and half its sides, in
    /// clip space. All of it at first.
    void fillPicture(const osg::Vec4d& area);

    /// How large a sample is, pixels: below 1 while a picture is made of several frames. 1 at first.
    void setSampleSize(double pixels);

    void showGrid(bool shown);
    /// The bones of the figures, over their bodies; off at first.
    void showSkeleton(bool shown);
    /// Figures that have no body: their bones are always shown.
    void setBare(const std::vector<osg::ref_ptr<osg::Group>>& bare);
    void setDetail(StageDetail detail);

private:
    void setPrograms();

    osg::ref_ptr<osg::Group> m_spRoot;
    Ground m_ground;
    osg::ref_ptr<osg::Group> m_spLit = new osg::Group;
    StageDetail m_detail = StageDetail::Fine;
    osg::ref_ptr<osg::Uniform> m_spKeyDirection;
    osg::ref_ptr<osg::Uniform> m_spShadowMatrix;
    osg::ref_ptr<osg::Uniform> m_spFootprintMatrix;
    osg::ref_ptr<osg::Uniform> m_spFootprintDepth;
    osg::ref_ptr<osg::Uniform> m_spCentre;
    osg::ref_ptr<osg::Uniform> m_spRadius;
    osg::ref_ptr<osg::Uniform> m_spGridStep;
    osg::ref_ptr<osg::Uniform> m_spShowGrid;
    osg::ref_ptr<osg::Uniform> m_spPicture;
    osg::ref_ptr<osg::Uniform> m_spSampleSize;
    osg::ref_ptr<SkeletonOverlay> m_spSkeleton;
    DepthView m_shadow;
    DepthView m_footprint;
};

}  // namespace KivPlayer
