#pragma once

#include <osg/Matrixd>

#include "KivCharacterization/common/fittingmaps.h"

namespace KivCharacterization {

/// How a piece is brought onto a bone segment. Matrices are row-vector: what is appended comes last. Zero
/// lengths are applied as they are.

/// Appends the rotation that takes the avatar's segment direction to the skeleton's. The avatar's direction
/// is taken to Z-up first; components of it under a thousandth count as 0.
void alignToSegment(osg::Matrixd& matrix, const BvhSegment& skeleton, const IveSegment& avatar);

/// Appends the uniform stretch to the skeleton's length and the move to the middle of its segment.
void stretchToSegment(osg::Matrixd& matrix, const BvhSegment& skeleton, const IveSegment& avatar);

/// The actor's hip width over the avatar's: the distance between the offsets of the two upper legs. A
/// missing segment is entered as zero.
float hipRatio(BvhSegmentMap& skeleton, IveSegmentMap& avatar);

/// The actor's hand size over the avatar's: the length of the left ring finger's metacarpal stands for both
/// hands. A missing segment is entered as zero.
float handRatio(BvhSegmentMap& skeleton, IveSegmentMap& avatar);

}  // namespace KivCharacterization
