// Says a motion otherwise: the person moves exactly as before, only the file that tells of it is another one.
#pragma once

#include <osg/Quat>
#include <osg/Vec3d>

#include <cstddef>
#include <string>
#include <vector>

#include "KivReader/motiondocument.h"

namespace KivTestSupport {

struct Rewriting
{
    /// Where what stands here in the old file stands in the new one.
    osg::Vec3d outOf(osg::Vec3d place) const;
    bool isThrown(std::size_t row) const;

    KivReader::MotionDocument document;
    std::vector<std::size_t> joints;      ///< index in the old file → index in the new one
    osg::Quat basis;                      ///< from the old file's axes to the new one's
    double perUnit = 1.0;                 ///< new length units per old one
    bool isMirrored = false;              ///< along the old file's x, before it is turned
    std::vector<std::size_t> thrownRows;  ///< where the figure is far from where it was
};

/// j0, j1, … in the file's order.
Rewriting withNumberedNames(const KivReader::MotionDocument& document);
Rewriting withNamesBetween(const KivReader::MotionDocument& document, const std::string& prefix,
                           const std::string& suffix);
/// Every joint's children the other way round.
Rewriting withChildrenReversed(const KivReader::MotionDocument& document);

/// The turns that take axes to axes.
constexpr std::size_t kBases = 24;
Rewriting inBasis(const KivReader::MotionDocument& document, std::size_t basis);
Rewriting inUnits(const KivReader::MotionDocument& document, double perUnit);

/// Every joint's own axes turned by a constant, told from the joint's frame; so with all channels 0 the
/// figure takes another pose.
Rewriting withFramesTurned(const KivReader::MotionDocument& document, const std::vector<osg::Quat>& turns);
/// Turns for that: any, the same ones for the same seed.
std::vector<osg::Quat> anyTurns(const KivReader::MotionDocument& document, unsigned seed);
/// Turns for that: the pose of this frame is the one with all channels 0.
std::vector<osg::Quat> turnsToFrame(const KivReader::MotionDocument& document, std::size_t frame);
/// Turns for that: what hangs first from a joint lies along this axis of it, as some editors write all bones.
std::vector<osg::Quat> turnsAlongBones(const KivReader::MotionDocument& document, const osg::Vec3d& axis);

/// Three rows with the root far away, each elsewhere; for motions of twelve rows or more.
Rewriting withRowsThrown(const KivReader::MotionDocument& document, double distance);
/// A joint without length over every joint that has siblings; every other one takes half of its turns.
Rewriting withPassThroughJoints(const KivReader::MotionDocument& document);
/// The world in a mirror, the names' sides exchanged: a person who does the same with the other hand.
Rewriting mirrored(const KivReader::MotionDocument& document);

}  // namespace KivTestSupport
