#pragma once

#include <osg/ref_ptr>

#include <string>

#include "KivAnimation/bone.h"

/// A bone that stands at that point of skeleton space, and at rest as far from its parent.
inline osg::ref_ptr<KivAnimation::Bone> boneAt(const std::string& name, const osg::Vec3d& position = {})
{
    osg::ref_ptr<KivAnimation::Bone> bone = new KivAnimation::Bone(name);
    bone->setMatrixInSkeletonSpace(osg::Matrixd::translate(position));
    bone->setInitialMatrix(osg::Matrixd::translate(position));
    return bone;
}
