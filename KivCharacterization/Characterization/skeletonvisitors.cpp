#include "KivCharacterization/Characterization/skeletonvisitors.h"

#include <osg/MatrixTransform>

#include <cmath>

#include "KivAnimation/bone.h"
#include "KivCharacterization/naming.h"

namespace KivCharacterization {

CBvhSkeletonNodeVisitor::CBvhSkeletonNodeVisitor(BvhJointMap* joints)
    : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN), m_pJoints(joints)
{}

void CBvhSkeletonNodeVisitor::apply(osg::Node& node)
{
    if (auto* bone = dynamic_cast<KivAnimation::Bone*>(&node)) {
        (*m_pJoints)[NormaliseJointName(bone->getName())] = bone;
    }
    traverse(node);
}

CBVhCalBoneLenNodeVisitor::CBVhCalBoneLenNodeVisitor(BvhSegmentMap* segments)
    : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN), m_pSegments(segments)
{}

void CBVhCalBoneLenNodeVisitor::apply(osg::Node& node)
{
    auto* bone = dynamic_cast<KivAnimation::Bone*>(&node);
    for (unsigned int i = 0; bone && i < bone->getNumChildren(); ++i) {
        const auto* child = dynamic_cast<const KivAnimation::Bone*>(bone->getChild(i));
        if (!child) {
            continue;
        }
        const osg::Vec3f offset(child->getInitialMatrix().getTrans());
        const std::string key =
            SegmentKey(withoutQualifier(bone->getName()), withoutQualifier(child->getName()));
        (*m_pSegments)[key] = {offset, std::sqrt(offset * offset)};
    }
    traverse(node);
}

CIveSkeletonNodeVisitor::CIveSkeletonNodeVisitor(IveJointMap* joints, SkeletonExtra* extra)
    : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN), m_pJoints(joints), m_pExtra(extra)
{}

void CIveSkeletonNodeVisitor::apply(osg::Node& node)
{
    auto* joint = dynamic_cast<osg::MatrixTransform*>(&node);
    if (!joint || hasPiecePrefix(joint->getName())) {
        traverse(node);
        return;
    }
    IveJointEntry& entry = (*m_pJoints)[joint->getName()];
    entry.pieces.clear();
    entry.node = joint;
    for (unsigned int i = 0; i < joint->getNumChildren(); ++i) {
        auto* piece = dynamic_cast<osg::MatrixTransform*>(joint->getChild(i));
        if (piece && isPieceName(piece->getName())) {
            entry.pieces.push_back(piece);
        }
    }
    traverse(node);
}

CIveCalBoneLenNodeVisitor::CIveCalBoneLenNodeVisitor(IveSegmentMap* segments)
    : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN), m_pSegments(segments)
{}

void CIveCalBoneLenNodeVisitor::apply(osg::Node& node)
{
    const auto* parent = dynamic_cast<osg::MatrixTransform*>(&node);
    if (!parent) {
        traverse(node);
        return;
    }
    for (unsigned int i = 0; i < parent->getNumChildren(); ++i) {
        const auto* child = dynamic_cast<const osg::MatrixTransform*>(parent->getChild(i));
        if (!child || isPieceName(child->getName())) {
            continue;
        }
        const osg::Vec3d offset = child->getMatrix().getTrans();
        IveSegment& segment = (*m_pSegments)[SegmentKey(parent->getName(), child->getName())];
        segment.length = static_cast<float>(offset.length());
        segment.offset = offset;
    }
    traverse(node);
}

}  // namespace KivCharacterization
