#include "host/KivManipulator/propspose.h"

#include <algorithm>
#include <cmath>

namespace KivManipulator {

namespace {

bool isFinite(const osg::Vec3d& vector)
{
    return std::isfinite(vector.x()) && std::isfinite(vector.y()) && std::isfinite(vector.z());
}

bool isRotation(const osg::Quat& rotation)
{
    return std::abs(rotation.length2() - 1.0) < 1e-6;
}

osg::Vec3d axis(const osg::Matrixd& matrix, int row)
{
    return {matrix(row, 0), matrix(row, 1), matrix(row, 2)};
}

}  // namespace

bool isFinite(const osg::Matrixd& matrix)
{
    return std::all_of(matrix.ptr(), matrix.ptr() + 16, [](double number) { return std::isfinite(number); });
}

PropsPose poseOf(const osg::Matrixd& matrix)
{
    PropsPose pose;
    osg::Quat stretchFrame;
    matrix.decompose(pose.position, pose.rotation, pose.scale, stretchFrame);
    pose.position = matrix.getTrans();
    if (!isRotation(pose.rotation) || !isFinite(pose.scale)) {
        pose.rotation = osg::Quat();
        pose.scale.set(axis(matrix, 0).length(), axis(matrix, 1).length(), axis(matrix, 2).length());
    }
    return pose;
}

}  // namespace KivManipulator
