#include "host/KivFrameData/jointpositions.h"

#include <osg/NodeVisitor>
#include <osg/Transform>

#include "KivCharacterization/naming.h"

namespace KivFrameData {

namespace {

class FirstSkeleton : public osg::NodeVisitor
{
public:
    FirstSkeleton() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) { setNodeMaskOverride(~0u); }

    void apply(osg::Node& node) override
    {
        if (m_pFound)
            return;
        m_pFound = dynamic_cast<KivAnimation::Skeleton*>(&node);
        if (!m_pFound)
            traverse(node);
    }

    KivAnimation::Skeleton* m_pFound = nullptr;
};

/// Bones hang on bones; what else hangs on them is what the skeleton wears.
void collectBones(osg::Group& parent, std::vector<osg::ref_ptr<KivAnimation::Bone>>& bones)
{
    for (unsigned i = 0; i < parent.getNumChildren(); ++i) {
        if (auto* bone = dynamic_cast<KivAnimation::Bone*>(parent.getChild(i))) {
            bones.push_back(bone);
            collectBones(*bone, bones);
        }
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

JointPositions::JointPositions(osg::Node& root)
{
    FirstSkeleton finder;
    root.accept(finder);
    m_spSkeleton = finder.m_pFound;
    if (m_spSkeleton)
        collectBones(*m_spSkeleton, m_bones);
}

std::vector<std::string> JointPositions::names() const
{
    std::vector<std::string> names;
    for (const auto& bone : m_bones)
        names.push_back(KivCharacterization::NormaliseJointName(bone->getName()));
    return names;
}

void JointPositions::read(std::vector<osg::Vec3d>& positions) const
{
    positions.clear();
    if (m_bones.empty())
        return;
    const osg::Matrixd world = worldMatrixOf(*m_spSkeleton);
    for (const auto& bone : m_bones) {
        const osg::Vec3d scene = bone->getMatrixInSkeletonSpace().getTrans() * world;
        positions.emplace_back(scene.x(), scene.z(), -scene.y());
    }
}

}  // namespace KivFrameData
