#include "KivCharacterization/Characterization/skeletonvisitors.h"

#include <osg/MatrixTransform>

#include <cmath>
#include <iterator>
#include <string_view>
#include <typeinfo>
#include <utility>

#include "KivAnimation/bone.h"
#include "KivCharacterization/naming.h"

namespace KivCharacterization {

namespace {

/// Most nodes of a motion skeleton are bones and nothing beyond, which is told without a search through the
/// classes above.
KivAnimation::Bone* asBone(osg::Node& node)
{
    return typeid(node) == typeid(KivAnimation::Bone) ? static_cast<KivAnimation::Bone*>(&node)
                                                      : dynamic_cast<KivAnimation::Bone*>(&node);
}

/// Adds or overwrites an entry. The names on the way down a skeleton are often neighbours in the table: the
/// place is looked for behind the last entry before it is searched for.
template <typename Map, typename Key>
void enter(Map& map, typename Map::const_iterator& next, Key&& key, const typename Map::mapped_type& value)
{
    const auto entry = map.emplace_hint(next, std::forward<Key>(key), value);
    entry->second = value;
    next = std::next(entry);
}

}  // namespace

CBvhSkeletonNodeVisitor::CBvhSkeletonNodeVisitor(BvhJointMap* joints)
    : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN), m_pJoints(joints), m_next(joints->end())
{}

void CBvhSkeletonNodeVisitor::apply(osg::Node& node)
{
    collect(node);
    traverse(node);
}

void CBvhSkeletonNodeVisitor::collect(osg::Node& node)
{
    if (KivAnimation::Bone* bone = asBone(node)) {
        enter(*m_pJoints, m_next, withoutQualifier(bone->getName()), bone);
    }
}

CBVhCalBoneLenNodeVisitor::CBVhCalBoneLenNodeVisitor(BvhSegmentMap* segments)
    : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN), m_pSegments(segments), m_next(segments->end())
{}

void CBVhCalBoneLenNodeVisitor::apply(osg::Node& node)
{
    collect(node);
    traverse(node);
}

void CBVhCalBoneLenNodeVisitor::collect(osg::Node& node)
{
    KivAnimation::Bone* bone = asBone(node);
    if (!bone) {
        return;
    }
    const std::string_view parentName = withoutQualifier(bone->getName());
    for (unsigned int i = 0; i < bone->getNumChildren(); ++i) {
        const KivAnimation::Bone* child = asBone(*bone->getChild(i));
        if (!child) {
            continue;
        }
        const osg::Vec3f offset(child->getInitialMatrix().getTrans());
        enter(*m_pSegments, m_next, SegmentKey(parentName, withoutQualifier(child->getName())),
              BvhSegment{offset, std::sqrt(offset * offset)});
    }
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
