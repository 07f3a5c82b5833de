#include "KivAnimation/bone.h"

namespace KivAnimation {

namespace {

/// Room for a joint's children and for what hangs on it, or every addition would move the earlier ones.
constexpr std::size_t kUsualChildren = 4;

}  // namespace

Bone::Bone(const std::string& name) : osgAnimation::Bone(name)
{
    _children.reserve(kUsualChildren);
}

Bone::Bone(const Bone& other, const osg::CopyOp& copyop)
    : osgAnimation::Bone(other, copyop), m_initialMatrix(other.m_initialMatrix)
{}

Bone::~Bone() = default;

}  // namespace KivAnimation
