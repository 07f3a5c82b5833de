#pragma once

#include <osg/MatrixTransform>

#include <string>
#include <vector>

#include "KivCharacterization/Characterization/jointnaming.h"
#include "KivCharacterization/Characterization/piecetransform.h"
#include "KivCharacterization/common/fittingmaps.h"

namespace KivCharacterization {

/// Where a piece goes: its transforms, hung below its bone, still without the piece. The bone holds them, the
/// tables the rest.
struct SPieceMount
{
    const std::string* joint;           ///< the normalised name that bone and piece have in common
    KivAnimation::Bone* bone;           ///< holds the wrapper
    const osg::MatrixTransform* piece;  ///< of the avatar
    PieceTransform* wrapper;
    PieceTransform* propsTransform;  ///< between wrapper and holder; null for a piece of no props
    PieceTransform* holder;
    SpecialJointTable::Entry* special;  ///< of the piece's name; null for most
    bool followsSegment;      ///< whether the piece is of a kind that a bone segment turns and stretches
    bool hasSegment = false;  ///< whether both sides have that segment
    float proportion = 1.0f;  ///< what a special piece is scaled by, last of all
};

/// Mounts for all pieces of the avatar whose joint the skeleton has, in ascending order of the joints' names.
/// All are made before the first piece is copied: that pushes skeleton and tables out of the caches. A piece
/// without the mark that ends its name gets none.
std::vector<SPieceMount> MountPieces(const BvhJointMap& skeleton, const IveJointMap& avatar);

/// Takes the transforms of a mount, and what hangs in them, away from its bone. They are gone then.
void Dismount(SPieceMount& mount);

}  // namespace KivCharacterization
