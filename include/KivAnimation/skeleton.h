#pragma once

#include <osgAnimation/Skeleton>

#include "KivCommonDef/sharedlibrary.h"

namespace KivAnimation {

/// The root of a motion skeleton: its frame is the skeleton space of the bones below it.
class KIV_ANIMATION_API Skeleton : public osgAnimation::Skeleton
{
public:
    Skeleton();
    Skeleton(const Skeleton& other, const osg::CopyOp& copyop = osg::CopyOp::SHALLOW_COPY);
    META_Node(KivAnimation, Skeleton)

protected:
    ~Skeleton() override;
};

}  // namespace KivAnimation
