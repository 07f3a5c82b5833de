// Our own walk, written with the faults that motion files from elsewhere come with, one at a time.
#pragma once

#include "KivReader/motiondocument.h"

namespace KivTestSupport {

/// The walk that is shipped, its rows thinned out: 60 or fewer.
KivReader::MotionDocument walk();

/// With all channels 0 every bone points up.
KivReader::MotionDocument walkWithBonesUpAtZero();
/// With all channels 0 the limbs are folded over the trunk: every bone points along x.
KivReader::MotionDocument walkWithBonesAsideAtZero();
/// With all channels 0 the figure stands, but its feet point backwards and their soles to the front.
KivReader::MotionDocument walkWithFeetBackwardsAtZero();

/// No word in the names says anything.
KivReader::MotionDocument walkWithUnknownNames();
/// In a space whose y points down, as cameras have it: x to the right, z away.
KivReader::MotionDocument walkWithYDown();
/// Three rows have the figure a kilometre away, above, below and beside.
KivReader::MotionDocument walkWithRowsThrownAway();
/// The feet end straight below the ankles, where the heels are.
KivReader::MotionDocument walkWithEndsBelowTheAnkles();
/// The trunk has nearly twice its length.
KivReader::MotionDocument walkWithLongTrunk();
/// The thighs' joints are half as far apart again.
KivReader::MotionDocument walkWithWideHips();
/// The neck begins inside the head: most of its length has gone to the chest.
KivReader::MotionDocument walkWithNeckInTheHead();

}  // namespace KivTestSupport
