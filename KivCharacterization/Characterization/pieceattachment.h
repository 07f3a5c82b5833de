#pragma once

#include <osg/MatrixTransform>

#include <set>
#include <string>

#include "KivCharacterization/common/actorinfo.h"
#include "KivCharacterization/common/iveinfo.h"

namespace KivCharacterization {

/// What the steps of a fitting run share, for its length.
struct SFittingRun
{
    SFittingRecord* record = nullptr;
    CommonTypeDef::SIveInfo* avatar = nullptr;
    std::string actorName;
};

/// Holders that a run has entered into the table of special joints.
using Holders = std::set<const osg::MatrixTransform*>;

/// Hangs a copy of every piece whose joint the skeleton has under that joint's bone: in ascending order of
/// the joints' names, and piece after piece in the order of the avatar's children. A piece hangs on its bone
/// only once it is whole, so an exception leaves nothing half made there.
Holders attachPieces(const SFittingRun& run);

/// Scales the torso pieces by the hip ratio and the hand pieces by the hand ratio, as far as the run has
/// attached them; of two pieces with one name that is the last one.
/// @param ownHolders what attachPieces answered.
void scaleByProportions(const SFittingRun& run, const Holders& ownHolders);

}  // namespace KivCharacterization
