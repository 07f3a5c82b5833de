#pragma once

#include <osg/Vec3d>

#include <vector>

#include "KivCommonDef/sharedlibrary.h"
#include "host/KivReader/figure/figurepose.h"

namespace KivReader {

/// Three joints of one limb, by their index: thigh, shin and foot, or arm, forearm and hand.
struct LimbJoints
{
    std::size_t upper = 0, middle = 0, end = 0;
};

/// How a limb bends at its middle joint, from posed frames alone: what a file calls its zero pose has no say
/// in it. On a person who looks along Z with the left at X and Y up, the axis of a knee points to the left
/// on both legs, and that of an elbow to the right where the arm hangs.
struct Hinge
{
    osg::Vec3d axis;  ///< in the upper joint's frame: upper bone × lower bone, length 1; 0 if it never bends
    osg::Vec3d axisBelow;    ///< the same in the middle joint's frame
    double range = 0.0;      ///< degrees between the straightest and the most bent pose
    double agreement = 0.0;  ///< 0…1: how far all bends are about one axis

    /// Whether the motion shows enough of it: it bends by 20 degrees at least, and always the same way.
    bool isTrusted() const { return range >= 20.0 && agreement >= 0.8; }
};

/// Upper bone × lower bone of one pose, in its space; the length is the sine of the bend, 0 for a limb
/// without length.
KIV_READER_API osg::Vec3d bendNormal(const Placements& pose, const LimbJoints& limb);

/// Degrees by which the limb is bent; 0 is straight.
KIV_READER_API double bendOf(const Placements& pose, const LimbJoints& limb);

/// Every bend counts by its sine; bends of less than 10 degrees do not count.
KIV_READER_API Hinge hingeOf(const std::vector<Placements>& poses, const LimbJoints& limb);

}  // namespace KivReader
