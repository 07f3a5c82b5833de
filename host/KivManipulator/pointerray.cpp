#include "host/KivManipulator/pointerray.h"

#include <osg/Transform>

namespace KivManipulator {

Ray rayIn(const osg::Matrixd& worldToLocal, const osgManipulator::PointerInfo& pointer)
{
    osg::Vec3d near, far;
    pointer.getNearFarPoints(near, far);
    const osg::Vec3d from = near * worldToLocal;
    osg::Vec3d along = far * worldToLocal - from;
    along.normalize();
    return {from, along};
}

std::optional<Ray> rayIn(osg::Node& handle, const osgManipulator::PointerInfo& pointer)
{
    osg::NodePath path;
    osgManipulator::computeNodePathToRoot(handle, path);
    osg::Matrixd worldToLocal;
    if (!worldToLocal.invert(osg::computeLocalToWorld(path)))
        return std::nullopt;
    return rayIn(worldToLocal, pointer);
}

}  // namespace KivManipulator
