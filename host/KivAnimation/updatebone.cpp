#include "KivAnimation/updatebone.h"

#include "KivAnimation/bone.h"

namespace KivAnimation {

namespace {

void refreshSkeletonSpace(osgAnimation::Bone& bone, const osg::Matrixd& parentInSkeletonSpace)
{
    bone.setMatrixInSkeletonSpace(bone.getMatrix() * parentInSkeletonSpace);
    for (unsigned i = 0; i < bone.getNumChildren(); ++i) {
        if (auto* child = dynamic_cast<osgAnimation::Bone*>(bone.getChild(i))) {
            refreshSkeletonSpace(*child, bone.getMatrixInSkeletonSpace());
        }
    }
}

}  // namespace

UpdateBone::UpdateBone() = default;

UpdateBone::UpdateBone(const osg::Matrixd& matrix) : m_matrix(matrix) {}

UpdateBone::UpdateBone(const UpdateBone& other, const osg::CopyOp& copyop)
    : osg::Object(other, copyop),
      osg::Callback(other, copyop),
      osg::NodeCallback(other, copyop),
      m_matrix(other.getMatrix())
{}

UpdateBone::~UpdateBone() = default;

void UpdateBone::setMatrix(const osg::Matrixd& matrix)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_matrix = matrix;
}

osg::Matrixd UpdateBone::getMatrix() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_matrix;
}

void UpdateBone::ApplyOtherMatrix(const UpdateBone& other)
{
    // One lock after the other, never both: two callbacks that do this to each other cannot block.
    setMatrix(other.getMatrix());
}

void UpdateBone::operator()(osg::Node* node, osg::NodeVisitor* visitor)
{
    const osg::Matrixd matrix = getMatrix();
    osg::Transform* transform = node->asTransform();
    osg::MatrixTransform* joint = transform ? transform->asMatrixTransform() : nullptr;
    if (joint && joint->getMatrix() != matrix) {
        if (auto* bone = dynamic_cast<Bone*>(joint)) {
            bone->setMatrix(matrix);
            const osgAnimation::Bone* parent = bone->getBoneParent();
            refreshSkeletonSpace(*bone, parent ? parent->getMatrixInSkeletonSpace() : osg::Matrixd());
        }
    }
    traverse(node, visitor);
}

}  // namespace KivAnimation
