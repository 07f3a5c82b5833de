#pragma once

#include <osg/Group>

namespace KivPlayer {

/// Draws the bones of all figures over their bodies: an octahedron from joint to joint, thick end at the
/// parent, and a dot on every joint. What belongs to the left side is blue, the right side orange, the rest
/// green. What carries a props is no part of the body and has no bone.
///
/// Hangs beside the figures, after them, so that its update finds them posed. Figures that are hidden have no
/// bones here either. Costs nothing while it is not shown.
class SkeletonOverlay : public osg::Group
{
public:
    /// @param figures watched; must outlive the overlay's traversals.
    explicit SkeletonOverlay(osg::Group* figures);

    void setShown(bool shown);
    bool isShown() const { return getNodeMask() != 0; }

protected:
    ~SkeletonOverlay() override = default;
};

}  // namespace KivPlayer
