#pragma once

#include <osg/BoundingBox>
#include <osg/Vec3d>

#include <vector>

namespace KivPlayer {

/// Where a camera stands and what it looks at. Scene units, Z-up.
struct CameraPose
{
    osg::Vec3d eye;
    osg::Vec3d target;
    osg::Vec3d up = osg::Vec3d(0, 0, 1);
};

/// Around the positions and the ground below their middle.
osg::BoundingBox boxWithGround(const std::vector<osg::Vec3d>& positions);
osg::BoundingBox boxWithGround(osg::BoundingBox box);

/// The camera that stands as near as it can while every point keeps a distance to the picture's edges.
/// @param compass  radians, counter-clockwise from the x axis: the direction from the figures to the eye.
/// @param fieldOfView vertical, degrees.
/// @param room     scene units to keep free around every point.
/// @return looks at the origin's surroundings where there are no points.
CameraPose frameAll(const std::vector<osg::Vec3d>& points, double compass, double elevation,
                    double fieldOfView, double aspect, double room);

}  // namespace KivPlayer
