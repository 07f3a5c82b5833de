// Implicit solids to sculpt with: a field is negative inside a body, positive outside, zero on its skin.
#pragma once

#include <functional>
#include <osg/Vec3d>
#include <vector>

namespace KivAvatarMaker {

/// Roughly the distance to the skin in centimetres: close enough for even blends, not exact.
using Field = std::function<double(const osg::Vec3d&)>;

Field ball(const osg::Vec3d& centre, double radius);
Field ellipsoid(const osg::Vec3d& centre, const osg::Vec3d& radii);

/// A limb: round all along, the radius going evenly from one end to the other, ends closed by half balls.
Field limb(const osg::Vec3d& from, double fromRadius, const osg::Vec3d& to, double toRadius);

/// A box with every edge rounded; `half` is measured to the outside.
Field roundedBox(const osg::Vec3d& centre, const osg::Vec3d& half, double edgeRadius);

/// Everything behind the plane through `point` whose normal points out of the body.
Field halfSpace(const osg::Vec3d& point, const osg::Vec3d& normal);

/// The bodies grown together; `width` is how far from a seam the skin is drawn into a fillet.
Field blended(const std::vector<Field>& bodies, double width);
/// What both bodies share, the edge rounded over `width`.
Field common(const Field& body, const Field& other, double width);
/// The body without the tool, the edge rounded over `width`.
Field carved(const Field& body, const Field& tool, double width);

/// The body turned by `degrees` about an axis through `pivot`.
Field turned(const Field& body, const osg::Vec3d& pivot, const osg::Vec3d& axis, double degrees);
/// The body and its mirror image at x = 0.
Field onBothSides(const Field& body, double width);

/// The unit direction in which the field grows fastest: outward on the skin.
osg::Vec3d outward(const Field& body, const osg::Vec3d& point);

}  // namespace KivAvatarMaker
