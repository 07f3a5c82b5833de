#include "KivCharacterization/Characterization/piecemount.h"

#include <osg/StateSet>

#include "KivAnimation/bone.h"
#include "KivCharacterization/Characterization/neighboursearch.h"

namespace KivCharacterization {

namespace {

// A quarter turn about x takes the avatar's Y-up to the scene's Z-up. The angle is pi/2 as single precision
// has it.
const osg::Matrixd kUpAxisTurn = osg::Matrixd::rotate(1.5707963705062866, osg::Vec3d(1.0, 0.0, 0.0));

/// Holders stretch their pieces, and light wants normals of unit length.
osg::ref_ptr<osg::StateSet> makeRescalingState()
{
    osg::ref_ptr<osg::StateSet> state = new osg::StateSet;
    state->setMode(GL_NORMALIZE, osg::StateAttribute::ON);
    return state;
}

SPieceMount makeMount(const std::string& joint, KivAnimation::Bone& bone, const osg::MatrixTransform& piece,
                      osg::StateSet& rescaling)
{
    const osg::ref_ptr<PieceTransform> wrapper = new PieceTransform;
    PieceTransform* propsTransform =
        IsPropsJoint(joint) ? new PieceTransform(*wrapper, osg::Matrixd::identity()) : nullptr;
    auto* holder = new PieceTransform(propsTransform ? *propsTransform : *wrapper, kUpAxisTurn);
    holder->setStateSet(&rescaling);
    bone.addChild(wrapper.get());
    return {&joint,
            &bone,
            &piece,
            wrapper.get(),
            propsTransform,
            holder,
            SpecialJointTable::instance().entry(piece.getName()),
            ClassifySegmentPiece(piece.getName()) != SegmentPieceKind::None};
}

}  // namespace

std::vector<SPieceMount> MountPieces(const BvhJointMap& skeleton, const IveJointMap& avatar)
{
    std::vector<SPieceMount> mounts;
    mounts.reserve(avatar.size());
    // One state for all: culling and drawing are quicker.
    const osg::ref_ptr<osg::StateSet> rescaling = makeRescalingState();
    NeighbourSearch<IveJointMap> avatarJoints(avatar);
    for (const auto& [joint, bone] : skeleton) {
        const IveJointEntry* entry = avatarJoints.find(joint);
        if (!entry) {
            continue;
        }
        for (const osg::MatrixTransform* piece : entry->pieces) {
            if (piece->getName().find(kPieceEndMark, kPiecePrefixLength) != std::string::npos) {
                mounts.push_back(makeMount(joint, *bone, *piece, *rescaling));
            }
        }
    }
    return mounts;
}

void Dismount(SPieceMount& mount)
{
    mount.bone->removeChild(mount.wrapper);
    mount.wrapper = mount.propsTransform = mount.holder = nullptr;
    mount.special = nullptr;
}

}  // namespace KivCharacterization
