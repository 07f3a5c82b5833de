#pragma once

#include <osg/Node>

#include <string>

#include "KivCharacterization/common/actorinfo.h"
#include "KivCharacterization/common/iveinfo.h"

namespace KivCharacterization {

/// Dresses a motion skeleton with an avatar: copies every piece onto the bone of its joint's name, turns it
/// from Y-up to Z-up, turns and stretches the pieces of bone segments onto the skeleton's segments, makes
/// the pieces of props joints movable, and scales torso and hands by the actor's proportions.
///
/// Under a bone stands, for each piece, a wrapper that holds a holder with the piece's copy; on a props
/// joint the props transform comes between the two, with the PropsGeode beside it.
///
/// Missing segments are no failure: the piece is then neither turned nor stretched. Lengths of zero are
/// applied as they are: whoever hands in such a skeleton gets what the quotient gives.
///
/// Not reentrant, for one thread at a time. Exceptions (out of memory, say) pass through.
///
/// @param actorName whose props the PropsGeodes will be.
/// @param root      a group with a KivAnimation::Skeleton somewhere below it.
/// @param record    filled, not cleared before: bones that are in it already must still be alive.
/// @param avatar    its segment table gains a zero entry for each reference segment that it lacks.
/// @return 1, or 0 for a root that is no group or holds no skeleton; the error sink says so and nothing is
/// changed.
unsigned int AttachEntityToBvhSkeleton(const std::string& actorName, osg::Node* root, SFittingRecord& record,
                                       CommonTypeDef::SIveInfo& avatar);

}  // namespace KivCharacterization
