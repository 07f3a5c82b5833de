#include "apps/kivplayer/content/dressedactor.h"

#include <osg/Billboard>
#include <osg/NodeVisitor>
#include <osgText/TextBase>

#include "KivCharacterization/naming.h"

namespace KivPlayer {

namespace {

class SkeletonFinder : public osg::NodeVisitor
{
public:
    SkeletonFinder() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) { setNodeMaskOverride(~0u); }

    void apply(osg::Node& node) override
    {
        if (auto* skeleton = dynamic_cast<KivAnimation::Skeleton*>(&node))
            m_pFound = m_pFound ? m_pFound : skeleton;
        else
            traverse(node);
    }

    KivAnimation::Skeleton* m_pFound = nullptr;
};

class LabelFinder : public osg::NodeVisitor
{
public:
    LabelFinder() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) { setNodeMaskOverride(~0u); }

    void apply(osg::Switch& node) override
    {
        osg::Switch* outer = m_pCurrent;
        m_pCurrent = &node;
        traverse(node);
        m_pCurrent = outer;
    }

    void apply(osg::Billboard& billboard) override
    {
        for (unsigned i = 0; i < billboard.getNumDrawables(); ++i)
            if (dynamic_cast<osgText::TextBase*>(billboard.getDrawable(i)))
                m_pFound = m_pCurrent;
    }

    osg::Switch* m_pFound = nullptr;

private:
    osg::Switch* m_pCurrent = nullptr;
};

void collectBones(osg::Node& node, std::vector<DressedActor::Joint>& joints)
{
    osg::Group* group = node.asGroup();
    if (!group)
        return;
    std::size_t own = joints.size();
    auto* bone = dynamic_cast<KivAnimation::Bone*>(group);
    if (bone)
        joints.push_back({withoutQualifier(bone->getName()), bone, true});
    const std::size_t before = joints.size();
    for (unsigned i = 0; i < group->getNumChildren(); ++i)
        // Bones hang on bones; what else hangs on them is what the skeleton wears.
        if (!bone || dynamic_cast<KivAnimation::Bone*>(group->getChild(i)))
            collectBones(*group->getChild(i), joints);
    if (bone)
        joints[own].isLeaf = joints.size() == before;
}

/// Below a bone: wrapper, then the holder whose child is the copy of the piece; props have one transform
/// between.
void collectPieces(osg::Group& parent, const std::string& joint, std::vector<DressedPiece>& pieces)
{
    for (unsigned i = 0; i < parent.getNumChildren(); ++i) {
        auto* child = dynamic_cast<osg::MatrixTransform*>(parent.getChild(i));
        if (!child || dynamic_cast<KivAnimation::Bone*>(child))
            continue;
        const auto* holder = dynamic_cast<const osg::MatrixTransform*>(&parent);
        if (KivCharacterization::hasPiecePrefix(child->getName()))
            pieces.push_back({child->getName(), joint, holder});
        else
            collectPieces(*child, joint, pieces);
    }
}

/// Along first parents, and without the lists of paths and matrices that a node's own answer makes.
osg::Matrixd worldMatrixOf(const osg::Node& node)
{
    osg::Matrixd world;
    for (const osg::Node* at = &node; at; at = at->getNumParents() > 0 ? at->getParent(0) : nullptr) {
        const osg::Transform* transform = at->asTransform();
        if (!transform || at->asCamera())
            continue;
        osg::Matrixd local;
        transform->computeLocalToWorldMatrix(local, nullptr);
        world.postMult(local);
    }
    return world;
}

}  // namespace

std::string withoutQualifier(const std::string& boneName)
{
    return KivCharacterization::NormaliseJointName(boneName);
}

std::optional<DressedActor> DressedActor::find(osg::Group& characterScene, const std::string& actorId)
{
    // Who is looked for is most often the one that came last.
    for (unsigned i = characterScene.getNumChildren(); i-- > 0;) {
        SkeletonFinder finder;
        characterScene.getChild(i)->accept(finder);
        if (!finder.m_pFound)
            continue;
        DressedActor actor;
        collectBones(*finder.m_pFound, actor.m_joints);
        const std::string prefix = actorId + KivCharacterization::kQualifierMark;
        if (actor.m_joints.empty() ||
            actor.m_joints.front().bone->getName().compare(0, prefix.size(), prefix) != 0)
            continue;
        actor.m_spRoot = characterScene.getChild(i)->asGroup();
        actor.m_spSkeleton = finder.m_pFound;
        return actor;
    }
    return std::nullopt;
}

std::vector<std::string> DressedActor::jointNames() const
{
    std::vector<std::string> names;
    for (const Joint& joint : m_joints)
        names.push_back(joint.name);
    return names;
}

std::vector<osg::Vec3d> DressedActor::positions() const
{
    std::vector<osg::Vec3d> positions;
    readPositions(positions);
    return positions;
}

void DressedActor::readPositions(std::vector<osg::Vec3d>& positions) const
{
    const osg::Matrixd world = worldMatrixOf(*m_spSkeleton);
    positions.clear();
    for (const Joint& joint : m_joints)
        positions.push_back(joint.bone->getMatrixInSkeletonSpace().getTrans() * world);
}

std::vector<DressedPiece> DressedActor::pieces() const
{
    std::vector<DressedPiece> pieces;
    for (const Joint& joint : m_joints)
        collectPieces(*joint.bone, joint.name, pieces);
    return pieces;
}

osg::Switch* DressedActor::labelSwitch() const
{
    LabelFinder finder;
    m_spRoot->accept(finder);
    return finder.m_pFound;
}

}  // namespace KivPlayer
