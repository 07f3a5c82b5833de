#pragma once

#include <osgManipulator/Dragger>

#include <optional>

namespace KivManipulator {

/// The line of sight through the pointer.
struct Ray
{
    osg::Vec3d from;
    osg::Vec3d along;  ///< of length 1
};

/// In the space that `worldToLocal` leads to.
Ray rayIn(const osg::Matrixd& worldToLocal, const osgManipulator::PointerInfo& pointer);

/// In a handle's own space; nothing where that space is flat.
std::optional<Ray> rayIn(osg::Node& handle, const osgManipulator::PointerInfo& pointer);

}  // namespace KivManipulator
