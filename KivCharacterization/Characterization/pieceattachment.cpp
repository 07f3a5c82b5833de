#include "KivCharacterization/Characterization/pieceattachment.h"

#include <osg/MatrixTransform>
#include <osg/StateSet>

#include <string_view>

#include "KivAnimation/bone.h"
#include "KivCharacterization/Characterization/jointnaming.h"
#include "KivCharacterization/Characterization/kivpropsproertymanager.h"
#include "KivCharacterization/Characterization/piececopy.h"
#include "KivCharacterization/Characterization/segmentfitting.h"
#include "KivManipulator/propsgeode.h"

namespace KivCharacterization {

namespace {

// A quarter turn about x takes the avatar's Y-up to the scene's Z-up. The angle is pi/2 as single precision
// has it.
const osg::Matrixd kUpAxisTurn = osg::Matrixd::rotate(1.5707963705062866, osg::Vec3d(1.0, 0.0, 0.0));

using Piece = osg::ref_ptr<osg::MatrixTransform>;
using Props = osg::ref_ptr<KivManipulator::PropsGeode>;

/// @return null for a piece whose copy is no matrix transform.
Piece copyPiece(const osg::MatrixTransform& piece)
{
    const osg::ref_ptr<osg::Object> copy = piece.clone(PieceCopy());
    return dynamic_cast<osg::MatrixTransform*>(copy.get());
}

bool hasEndMark(const std::string& pieceName)
{
    return pieceName.find(kPieceEndMark, kPiecePrefixLength) != std::string::npos;
}

/// Puts a props transform between wrapper and holder, and beside it the geode that moves it.
Props buildProps(const SFittingRun& run, const std::string& joint, const KivAnimation::Bone& bone,
                 osg::MatrixTransform& wrapper, osg::MatrixTransform& holder)
{
    osg::ref_ptr<osg::MatrixTransform> propsTransform = new osg::MatrixTransform;
    propsTransform->addChild(&holder);
    const osg::Vec3f position(bone.getInitialMatrix().getTrans());
    Props props =
        new KivManipulator::PropsGeode(run.actorName, propsTransform.get(), position,
                                       KivPropsProertyManager::Instance()->CreateProertyChangeLink());
    props->SetDefaultDragger();
    wrapper.addChild(propsTransform.get());
    wrapper.addChild(props.get());
    run.record->propsMap[joint] = props.get();
    return props;
}

/// Turns and stretches what a holder holds by the bone segment that both sides have; without one it stays.
void fitToSegment(const SFittingRun& run, const std::string& segment, KivAnimation::Bone& bone,
                  osg::MatrixTransform& holder, KivManipulator::PropsGeode* props)
{
    const auto ofSkeleton = run.record->segmentMap.find(segment);
    const auto ofAvatar = run.avatar->segmentMap.find(segment);
    if (ofSkeleton == run.record->segmentMap.end() || ofAvatar == run.avatar->segmentMap.end()) {
        return;
    }
    osg::Matrixd matrix = holder.getMatrix();
    alignToSegment(matrix, ofSkeleton->second, ofAvatar->second);
    stretchToSegment(matrix, ofSkeleton->second, ofAvatar->second);
    holder.setMatrix(matrix);
    if (props) {
        // The user places this piece: it starts out as it was modelled.
        holder.setMatrix(osg::Matrixd::identity());
        props->SetInitalBoneAndMatrix(&bone, bone.getInitialMatrix(), holder.getMatrix());
    }
}

/// @return the holder, where the table of special joints shows it now.
const osg::MatrixTransform* attachPiece(const SFittingRun& run, const std::string& joint,
                                        KivAnimation::Bone& bone, const osg::MatrixTransform& piece)
{
    const std::string& name = piece.getName();
    const Piece copy = copyPiece(piece);
    if (!copy || !hasEndMark(name)) {
        return nullptr;
    }
    const Piece wrapper = new osg::MatrixTransform;
    const Piece holder = new osg::MatrixTransform;
    holder->addChild(copy.get());
    const bool followsSegment = ClassifySegmentPiece(name) != SegmentPieceKind::None;
    if (followsSegment) {
        copy->setMatrix(osg::Matrixd::identity());
    }
    Props props;
    if (IsPropsJoint(joint)) {
        props = buildProps(run, joint, bone, *wrapper, *holder);
        copy->setNodeMask(kOverlayMask);
    } else {
        wrapper->addChild(holder.get());
    }
    holder->setMatrix(kUpAxisTurn);
    // Holders stretch their pieces, and light wants normals of unit length.
    holder->getOrCreateStateSet()->setMode(GL_NORMALIZE, osg::StateAttribute::ON);
    const bool isSpecial = SpecialJointTable::instance().record(name, holder.get());
    if (followsSegment) {
        fitToSegment(run, PieceBaseName(name), bone, *holder, props.get());
    }
    bone.addChild(wrapper.get());
    return isSpecial ? holder.get() : nullptr;
}

/// The table may still show another actor's holder, which is not this run's to change.
template <typename Names>
void scaleSpecialPieces(const Names& names, float ratio, const Holders& ownHolders)
{
    for (const std::string_view name : names) {
        osg::MatrixTransform* holder = SpecialJointTable::instance().find(std::string(name));
        if (ownHolders.count(holder) != 0) {
            holder->setMatrix(holder->getMatrix() * osg::Matrixd::scale(ratio, ratio, ratio));
        }
    }
}

}  // namespace

Holders attachPieces(const SFittingRun& run)
{
    Holders holders;
    for (const auto& [joint, bone] : run.record->jointMap) {
        const auto entry = run.avatar->jointMap.find(joint);
        if (entry == run.avatar->jointMap.end()) {
            continue;
        }
        for (const osg::MatrixTransform* piece : entry->second.pieces) {
            if (const osg::MatrixTransform* holder = attachPiece(run, joint, *bone, *piece)) {
                holders.insert(holder);
            }
        }
    }
    return holders;
}

// The hip width sizes the torso and the left ring finger's metacarpal both hands: one figure each is enough
// for a body that looks of a piece.
void scaleByProportions(const SFittingRun& run, const Holders& ownHolders)
{
    scaleSpecialPieces(kTorsoPieces, hipRatio(run.record->segmentMap, run.avatar->segmentMap), ownHolders);
    scaleSpecialPieces(kHandPieces, handRatio(run.record->segmentMap, run.avatar->segmentMap), ownHolders);
}

}  // namespace KivCharacterization
