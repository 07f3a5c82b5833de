#include "KivAnimation/bone.h"

#include <utility>

#include "host/KivAnimation/bonewatch.h"

namespace KivAnimation {

namespace {

/// Room for a joint's children and for what hangs on it, or every addition would move the earlier ones.
constexpr std::size_t kUsualChildren = 4;

}  // namespace

Bone::Bone(std::string name)
{
    _name = std::move(name);
}

// The parent comes last: nothing may throw once it holds the bone.
Bone::Bone(std::string name, Bone& parent) : Bone(std::move(name))
{
    if (parent._children.empty()) {
        parent._children.reserve(kUsualChildren);
    }
    _parents.push_back(&parent);
    parent._children.emplace_back(this);
    parent.childInserted(parent.getNumChildren() - 1);
    parent.dirtyBound();
}

Bone::Bone(const Bone& other, const osg::CopyOp& copyop)
    : osgAnimation::Bone(other, copyop), m_initialMatrix(other.m_initialMatrix)
{}

Bone::~Bone()
{
    BoneWatch::emptyAll(m_firstWatch);
}

}  // namespace KivAnimation
