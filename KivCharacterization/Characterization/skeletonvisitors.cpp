#include "KivCharacterization/Characterization/skeletonvisitors.h"

#include <osg/MatrixTransform>

#include <cmath>
#include <string_view>

#include "KivAnimation/bone.h"
#include "KivCharacterization/Characterization/jointnaming.h"

namespace KivCharacterization {

namespace {

bool isPieceName(const std::string& name)
{
    return name.size() > kPiecePrefixLength && HasPiecePrefix(name);
}

}  // namespace

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
    const auto* bone = dynamic_cast<KivAnimation::Bone*>(&node);
    if (!bone) {
        traverse(node);
        return;
    }
    const std::string_view parentName = UnqualifiedJointName(bone->getName());
    for (unsigned int i = 0; i < bone->getNumChildren(); ++i) {
        const auto* child = dynamic_cast<const KivAnimation::Bone*>(bone->getChild(i));
        if (!child) {
            continue;
        }
        const osg::Vec3f offset(child->getInitialMatrix().getTrans());
        BvhSegment& segment = (*m_pSegments)[SegmentKey(parentName, UnqualifiedJointName(child->getName()))];
        segment.offset = offset;
        segment.length = std::sqrt(offset * offset);
    }
    traverse(node);
}

CIveSkeletonNodeVisitor::CIveSkeletonNodeVisitor(IveJointMap* joints, SkeletonExtra* extra)
    : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN), m_pJoints(joints), m_pExtra(extra)
{}

void CIveSkeletonNodeVisitor::apply(osg::Node& node)
{
    auto* joint = dynamic_cast<osg::MatrixTransform*>(&node);
    if (!joint || HasPiecePrefix(joint->getName())) {
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
