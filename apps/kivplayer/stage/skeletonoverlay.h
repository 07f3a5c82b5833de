#pragma once

#include <osg/Group>
#include <osg/ref_ptr>

#include <vector>

namespace KivPlayer {

class FollowFigures;

/// Draws the bones of all figures over their bodies: an octahedron from joint to joint, thick end at the
/// parent, and a dot on every joint. What belongs to the left side is blue, the right side orange, the rest
/// green. Joints that carry a prop are no part of the body and have no bone.
///
/// Hangs beside the figures, after them, so that its update finds them posed. Figures that are hidden have no
/// bones here either. Costs nothing while it is not shown.
class SkeletonOverlay : public osg::Group
{
public:
    /// @param figures watched; must outlive the overlay's traversals.
    explicit SkeletonOverlay(osg::Group* figures);

    void setShown(bool shown);
    /// Figures whose bones are drawn even while the overlay is not shown: they have no body.
    void setBare(const std::vector<osg::ref_ptr<osg::Group>>& bare);

    /// Whether any bones are drawn.
    bool isShown() const { return getNodeMask() != 0; }

protected:
    ~SkeletonOverlay() override;

private:
    void update();

    osg::ref_ptr<FollowFigures> m_spFollow;
    bool m_shown = false;
};

}  // namespace KivPlayer
