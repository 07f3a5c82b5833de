#pragma once

#include <osg/Matrixd>
#include <osg/Quat>
#include <osg/Vec3d>

namespace KivManipulator {

/// A props matrix taken apart: scale along the props' own axes, then rotation, then position.
struct PropsPose
{
    osg::Vec3d position;
    osg::Quat rotation;
    osg::Vec3d scale;
};

/// True if none of the 16 numbers is infinite or no number.
bool isFinite(const osg::Matrixd& matrix);

/// The pose of a finite matrix. Every matrix has one: where no rotation can be read from it (a scale of
/// zero), the rotation is none and the scale is the lengths of its axes.
PropsPose poseOf(const osg::Matrixd& matrix);

}  // namespace KivManipulator
