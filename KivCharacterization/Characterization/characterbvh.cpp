#include "KivCharacterization/Characterization/characterbvh.h"

#include <osg/Group>
#include <osg/MatrixTransform>

#include <algorithm>
#include <string_view>
#include <vector>

#include "KivAnimation/bone.h"
#include "KivAnimation/skeleton.h"
#include "KivCharacterization/Characterization/errormessage.h"
#include "KivCharacterization/Characterization/jointnaming.h"
#include "KivCharacterization/Characterization/kivpropsproertymanager.h"
#include "KivCharacterization/Characterization/neighboursearch.h"
#include "KivCharacterization/Characterization/nodemasks.h"
#include "KivCharacterization/Characterization/piececopy.h"
#include "KivCharacterization/Characterization/segmentfitting.h"
#include "KivCharacterization/Characterization/skeletonvisitors.h"
#include "KivManipulator/propsgeode.h"

namespace KivCharacterization {

namespace {

const char* const kSource = "KivCharacterization/Characterization/characterbvh";

// A quarter turn about x takes the avatar's Y-up to the scene's Z-up. The angle is pi/2 as single precision
// has it.
const osg::Matrixd kUpAxisTurn = osg::Matrixd::rotate(1.5707963705062866, osg::Vec3d(1.0, 0.0, 0.0));

/// What the steps of a run share, for its length.
struct SCurrentRun
{
    SFittingRecord* record = nullptr;
    CommonTypeDef::SIveInfo* avatar = nullptr;
    std::string actorName;
};
SCurrentRun currentRun;

/// What the pieces of a run share while they are attached, in the order of their joints' names and so nearly
/// in that of their segments.
struct SAttaching
{
    osg::ref_ptr<osg::StateSet> rescaling =
        new osg::StateSet;  ///< one for all: culling and drawing are quicker
    NeighbourSearch<BvhSegmentMap> skeletonSegments{currentRun.record->segmentMap};
    NeighbourSearch<IveSegmentMap> avatarSegments{currentRun.avatar->segmentMap};
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

/// Puts a props transform between wrapper and holder, with the geode that moves it beside it.
osg::ref_ptr<KivManipulator::PropsGeode> buildProps(const std::string& joint, const KivAnimation::Bone& bone,
                                                    osg::MatrixTransform& wrapper,
                                                    osg::MatrixTransform& holder)
{
    osg::ref_ptr<osg::MatrixTransform> propsTransform = new osg::MatrixTransform;
    propsTransform->addChild(&holder);
    const osg::Vec3f position(bone.getInitialMatrix().getTrans());
    osg::ref_ptr<KivManipulator::PropsGeode> props =
        new KivManipulator::PropsGeode(currentRun.actorName, propsTransform.get(), position,
                                       KivPropsProertyManager::Instance()->CreateProertyChangeLink());
    props->SetDefaultDragger();
    wrapper.addChild(propsTransform.get());
    wrapper.addChild(props.get());
    currentRun.record->propsMap[joint] = props.get();
    return props;
}

/// Turns and stretches the piece of a bone segment that both sides have.
void fitToSegment(std::string_view segment, KivAnimation::Bone& bone, osg::MatrixTransform& holder,
                  KivManipulator::PropsGeode* props, SAttaching& attaching)
{
    const BvhSegment* skeletonSegment = attaching.skeletonSegments.find(segment);
    const IveSegment* avatarSegment = attaching.avatarSegments.find(segment);
    if (!skeletonSegment || !avatarSegment) {
        return;
    }
    if (props) {
        // The user places this piece: it starts out as it was modelled.
        holder.setMatrix(osg::Matrixd::identity());
        props->SetInitalBoneAndMatrix(&bone, bone.getInitialMatrix(), holder.getMatrix());
        return;
    }
    osg::Matrixd matrix = holder.getMatrix();
    AlignToSegment(matrix, *skeletonSegment, *avatarSegment);
    StretchToSegment(matrix, *skeletonSegment, *avatarSegment);
    holder.setMatrix(matrix);
}

/// Hangs a copy of one piece under its bone.
/// @return the holder, or null for a piece that is not attached.
osg::ref_ptr<osg::MatrixTransform> attachPiece(const std::string& joint, KivAnimation::Bone& bone,
                                               const osg::MatrixTransform& piece, SAttaching& attaching)
{
    const std::string& name = piece.getName();
    if (name.find('$', kPiecePrefixLength) == std::string::npos) {
        return nullptr;
    }
    const osg::ref_ptr<osg::Object> clone = piece.clone(PieceCopy());
    auto* copy = dynamic_cast<osg::MatrixTransform*>(clone.get());
    if (!copy) {
        return nullptr;
    }
    osg::ref_ptr<osg::MatrixTransform> wrapper = new osg::MatrixTransform;
    osg::ref_ptr<osg::MatrixTransform> holder = new osg::MatrixTransform(kUpAxisTurn);
    holder->setStateSet(attaching.rescaling.get());
    holder->addChild(copy);
    const bool alongSegment = ClassifySegmentPiece(name) != SegmentPieceKind::None;
    if (alongSegment) {
        copy->setMatrix(osg::Matrixd::identity());
    }
    osg::ref_ptr<KivManipulator::PropsGeode> props;
    if (IsPropsJoint(joint)) {
        props = buildProps(joint, bone, *wrapper, *holder);
        copy->setNodeMask(kOverlayMask);
    } else {
        wrapper->addChild(holder.get());
    }
    if (alongSegment) {
        fitToSegment(PieceBase(name), bone, *holder, props.get(), attaching);
    }
    bone.addChild(wrapper.get());
    return holder;
}

using Holders = std::vector<const osg::MatrixTransform*>;

/// @return the holders that the table of special joints shows from now on.
Holders attachPieces()
{
    Holders holders;
    SAttaching attaching;
    attaching.rescaling->setMode(GL_NORMALIZE, osg::StateAttribute::ON);
    NeighbourSearch<IveJointMap> avatarJoints(currentRun.avatar->jointMap);
    for (const auto& [joint, bone] : currentRun.record->jointMap) {
        const IveJointEntry* entry = avatarJoints.find(joint);
        if (!entry) {
            continue;
        }
        for (const osg::MatrixTransform* piece : entry->pieces) {
            const auto holder = attachPiece(joint, *bone, *piece, attaching);
            if (holder && SpecialJointTable::instance().record(piece->getName(), holder.get())) {
                holders.push_back(holder.get());
            }
        }
    }
    return holders;
}

/// Scales one special piece. The table may still show another actor's holder, which is not this run's to
/// change.
void scaleSpecialJoint(const std::string& name, float ratio, const Holders& ownHolders)
{
    osg::MatrixTransform* holder = SpecialJointTable::instance().find(name);
    if (holder && std::find(ownHolders.begin(), ownHolders.end(), holder) != ownHolders.end()) {
        holder->setMatrix(holder->getMatrix() * osg::Matrixd::scale(ratio, ratio, ratio));
    }
}

/// The hip width sizes the torso and the left ring finger's metacarpal both hands: one figure each is enough
/// for a body that looks of a piece.
void scaleProportions(const Holders& ownHolders)
{
    BvhSegmentMap& skeleton = currentRun.record->segmentMap;
    IveSegmentMap& avatar = currentRun.avatar->segmentMap;

    const float hipRatio = HipRatio(skeleton, avatar);
    for (const std::string& name : TorsoPieceNames()) {
        scaleSpecialJoint(name, hipRatio, ownHolders);
    }
    const float handRatio = HandRatio(skeleton, avatar);
    for (const std::string& name : HandPieceNames()) {
        scaleSpecialJoint(name, handRatio, ownHolders);
    }
}

/// @return false if the avatar cannot be fitted; no avatar is refused today.
bool fitAvatar()
{
    const Holders ownHolders = attachPieces();
    scaleProportions(ownHolders);
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
    osg::ref_ptr<CBvhSkeletonNodeVisitor> joints = new CBvhSkeletonNodeVisitor(&record.jointMap);
    skeleton->accept(*joints);
    osg::ref_ptr<CBVhCalBoneLenNodeVisitor> segments = new CBVhCalBoneLenNodeVisitor(&record.segmentMap);
    skeleton->accept(*segments);

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
