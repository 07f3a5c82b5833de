#include "KivAnimation/skeleton.h"

namespace KivAnimation {

Skeleton::Skeleton() = default;

Skeleton::Skeleton(const Skeleton& other, const osg::CopyOp& copyop) : osgAnimation::Skeleton(other, copyop)
{}

Skeleton::~Skeleton() = default;

}  // namespace KivAnimation
