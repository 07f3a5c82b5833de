#include "KivAnimation/bone.h"

namespace KivAnimation {

Bone::Bone(const std::string& name) : osgAnimation::Bone(name) {}

Bone::Bone(const Bone& other, const osg::CopyOp& copyop)
    : osgAnimation::Bone(other, copyop), m_initialMatrix(other.m_initialMatrix)
{}

Bone::~Bone() = default;

}  // namespace KivAnimation
