#include "KivCharacterization/Characterization/characterbvh.h"

#include <osg/Group>
#include <osg/MatrixTransform>

#include <algorithm>
#include <vector>

#include "KivAnimation/bone.h"
#include "KivAnimation/skeleton.h"
#include "KivCharacterization/Characterization/errormessage.h"
#include "KivCharacterization/Characterization/jointnaming.h"
#include "KivCharacterization/Characterization/kivpropsproertymanager.h"
#include "KivCharacterization/Characterization/neighboursearch.h"
#include "KivCharacterization/Characterization/piececopy.h"
#include "KivCharacterization/Characterization/piecemount.h"
#include "KivCharacterization/Characterization/segmentfitting.h"
#include "KivCharacterization/Characterization/skeletonvisitors.h"
#include "KivManipulator/propsgeode.h"

namespace KivCharacterization {

namespace {

const char* const kSource = "KivCharacterization/Characterization/characterbvh";

/// Takes both collecting walks over a motion skeleton at once, while a bone is still near in memory.
class SkeletonCollector : public osg::NodeVisitor
{
public:
    explicit SkeletonCollector(SFittingRecord& record)
        : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN),
          m_joints(new CBvhSkeletonNodeVisitor(&record.jointMap)),
          m_segments(new CBVhCalBoneLenNodeVisitor(&record.segmentMap))
    {}
    void apply(osg::Node& node) override
    {
        m_joints->collect(node);
        m_segments->collect(node);
        traverse(node);
    }
    using osg::NodeVisitor::apply;

private:
    osg::ref_ptr<CBvhSkeletonNodeVisitor> m_joints;
    osg::ref_ptr<CBVhCalBoneLenNodeVisitor> m_segments;
};

/// What the steps of a run share, for its length.
struct SCurrentRun
{
    SFittingRecord* record = nullptr;
    CommonTypeDef::SIveInfo* avatar = nullptr;
    std::string actorName;
};
SCurrentRun currentRun;

/// Where the steps of a run look for segments. Pieces come in the order of their joints' names and so nearly
/// in that of their segments.
struct SSegmentSearch
{
    NeighbourSearch<BvhSegmentMap> skeleton{currentRun.record->segmentMap};
    NeighbourSearch<IveSegmentMap> avatar{currentRun.avatar->segmentMap};
};

KivAnimation::Skeleton* findSkeleton(osg::Node* node)
{
    if (auto* skeleton = dynamic_cast<KivAnimation::Skeleton*>(node)) {
        return skeleton;
    }
    osg::Group* group = node->asGroup();
    for (unsigned int i = 0; group && i < group->getNumChildren(); ++i) {
        if (KivAnimation::Skeleton* skeleton = findSkeleton(group->getChild(i))) {
            return skeleton;
        }
    }
    return nullptr;
}

/// Makes the geode that moves a props transform, beside it.
void buildProps(const SPieceMount& mount)
{
    const osg::Vec3f position(mount.bone->getInitialMatrix().getTrans());
    osg::ref_ptr<KivManipulator::PropsGeode> props =
        new KivManipulator::PropsGeode(currentRun.actorName, mount.propsTransform, position,
                                       KivPropsProertyManager::Instance()->CreateProertyChangeLink());
    props->SetDefaultDragger();
    mount.wrapper->addChild(props.get());
    if (mount.hasSegment) {
        props->SetInitalBoneAndMatrix(mount.bone, mount.bone->getInitialMatrix(), mount.holder->getMatrix());
    }
    currentRun.record->propsMap[*mount.joint] = props.get();
}

/// Turns and stretches what a holder will hold by the bone segment that both sides have.
/// @return false, and no change, where a side lacks it.
bool fitToSegment(const SPieceMount& mount, SSegmentSearch& segments)
{
    const std::string segment = PieceBaseName(mount.piece->getName());
    const BvhSegment* skeletonSegment = segments.skeleton.find(segment);
    const IveSegment* avatarSegment = segments.avatar.find(segment);
    if (!skeletonSegment || !avatarSegment) {
        return false;
    }
    osg::Matrixd matrix;  // The user places a props: it starts out as it was modelled.
    if (!mount.propsTransform) {
        matrix = mount.holder->getMatrix();
        AlignToSegment(matrix, *skeletonSegment, *avatarSegment);
        StretchToSegment(matrix, *skeletonSegment, *avatarSegment);
    }
    mount.holder->setMatrix(matrix);
    return true;
}

void fitToSegments(std::vector<SPieceMount>& mounts)
{
    SSegmentSearch segments;
    for (SPieceMount& mount : mounts) {
        mount.hasSegment = mount.followsSegment && fitToSegment(mount, segments);
    }
}

template <typename Names>
void setProportion(SPieceMount& mount, const Names& names, float ratio)
{
    if (std::find(names.begin(), names.end(), mount.special->first) != names.end()) {
        mount.proportion = ratio;
    }
}

/// The hip width sizes the torso and the left ring finger's metacarpal both hands: one figure each is enough
/// for a body that looks of a piece.
void findProportions(std::vector<SPieceMount>& mounts)
{
    BvhSegmentMap& skeleton = currentRun.record->segmentMap;
    IveSegmentMap& avatar = currentRun.avatar->segmentMap;
    const float hipRatio = HipRatio(skeleton, avatar);
    const float handRatio = HandRatio(skeleton, avatar);
    for (SPieceMount& mount : mounts) {
        if (mount.special) {
            setProportion(mount, kTorsoPieces, hipRatio);
            setProportion(mount, kHandPieces, handRatio);
        }
    }
}

/// @return null for a piece whose copy is no matrix transform.
osg::ref_ptr<osg::MatrixTransform> copyPiece(const osg::MatrixTransform& piece)
{
    const osg::ref_ptr<osg::Node> copy = PieceCopy()(&piece);
    osg::Transform* transform = copy ? copy->asTransform() : nullptr;
    return transform ? transform->asMatrixTransform() : nullptr;
}

/// Hangs a copy of its piece into a mount, and shows the mount's holder in the table of special joints.
/// @return false for a piece that cannot be copied.
bool fillMount(const SPieceMount& mount)
{
    const osg::ref_ptr<osg::MatrixTransform> copy = copyPiece(*mount.piece);
    if (!copy) {
        return false;
    }
    mount.holder->addChild(copy.get());
    if (mount.followsSegment) {
        copy->setMatrix(osg::Matrixd::identity());
    }
    if (mount.propsTransform) {
        copy->setNodeMask(kOverlayMask);
        buildProps(mount);
    }
    if (mount.special) {
        mount.special->second = mount.holder;
    }
    return true;
}

void scaleByProportion(const SPieceMount& mount)
{
    // Of pieces with one name the table shows the last, and that one is scaled.
    if (mount.special && mount.special->second == mount.holder) {
        const double ratio = mount.proportion;
        mount.holder->setMatrix(mount.holder->getMatrix() * osg::Matrixd::scale(ratio, ratio, ratio));
    }
}

/// Copying pushes skeleton and tables out of the caches: what is looked up there is found before.
/// @return false if the avatar cannot be fitted; no avatar is refused today.
bool fitAvatar()
{
    std::vector<SPieceMount> mounts = MountPieces(currentRun.record->jointMap, currentRun.avatar->jointMap);
    fitToSegments(mounts);
    findProportions(mounts);
    for (SPieceMount& mount : mounts) {
        if (!fillMount(mount)) {
            Dismount(mount);
        }
    }
    for (const SPieceMount& mount : mounts) {
        scaleByProportion(mount);
    }
    return true;
}

}  // namespace

unsigned int AttachEntityToBvhSkeleton(const std::string& actorName, osg::Node* root, SFittingRecord& record,
                                       CommonTypeDef::SIveInfo& avatar)
{
    auto* group = dynamic_cast<osg::Group*>(root);
    if (!group) {
        ReportError(kSource, 25, "node invalid !");
        return 0;
    }
    KivAnimation::Skeleton* skeleton = findSkeleton(group);
    if (!skeleton) {
        ReportError(kSource, 37, "can not find skeleton node !");
        return 0;
    }
    osg::ref_ptr<SkeletonCollector> collector = new SkeletonCollector(record);
    skeleton->accept(*collector);

    currentRun.record = &record;
    currentRun.avatar = &avatar;
    currentRun.actorName = actorName;
    const bool fitted = fitAvatar();
    currentRun.record = nullptr;
    currentRun.avatar = nullptr;
    if (!fitted) {
        ReportError(kSource, 60, "an expection occurred while the function AttachEntityToBvhSkeleton exec!");
        return 0;
    }
    currentRun.actorName.clear();
    return 1;
}

}  // namespace KivCharacterization
