// Draws a regular net of triangles over a field.
#pragma once

#include "tools/makeavatar/field.h"
#include "tools/makeavatar/mesh.h"

namespace KivAvatarMaker {

/// How the net lies: rays leave an axis inside the body, at right angles between its ends and fanning out at
/// them, and every ray ends in a vertex where it leaves the body. The body must be visible along its rays.
struct Net
{
    osg::Vec3d from, to;        ///< the axis; both ends inside the body
    osg::Vec3d front;           ///< where the first column lies; at right angles to the axis
    unsigned rings = 14;        ///< between the two poles
    unsigned columns = 18;      ///< around
    double capShare = 0.3;      ///< the share of the rings that fans out at each end
    bool flatFrom = false;      ///< the body ends flat before `from`: draws rings to the rim
    bool flatTo = false;        ///< the same behind `to`
    double flatness = 1.0;      ///< width over depth of the body: spreads the columns evenly over a flat one
    unsigned frontColumns = 0;  ///< how many of the columns' steps share the front half; 0: as many as behind
    double focus = 1.0;         ///< over 1 the columns of the front half crowd about its middle
};

/// 2 × rings × columns triangles, one closed component. Throws std::logic_error where a ray finds no skin.
Mesh skinned(const Field& body, const Net& net, const osg::Vec4f& colour);

/// A rod with round ends and a coarse net, for what is mostly hidden.
Mesh rodMesh(const osg::Vec3d& from, double fromRadius, const osg::Vec3d& to, double toRadius,
             const osg::Vec4f& colour);

/// A ball with an even net.
Mesh ballMesh(const osg::Vec3d& centre, double radius, unsigned rings, unsigned columns,
              const osg::Vec4f& colour);

}  // namespace KivAvatarMaker
