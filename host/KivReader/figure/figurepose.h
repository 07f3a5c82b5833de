#pragma once

#include <osg/Quat>
#include <osg/Vec3d>

#include <vector>

#include "KivCommonDef/sharedlibrary.h"
#include "host/KivReader/figure/motionfigure.h"

namespace KivReader {

/// Where a joint's frame lies in the scene: turned first, moved then.
struct Placement
{
    osg::Vec3d place;
    osg::Quat turn;

    osg::Vec3d outward(const osg::Vec3d& local) const { return place + turn * local; }
    osg::Vec3d inward(const osg::Vec3d& point) const { return turn.conj() * (point - place); }
};

using Placements = std::vector<Placement>;

/// Carries moves out from a frame on.
/// @param row the values of one frame.
KIV_READER_API Placement moved(Placement placement, const PoseSteps& steps, const float* row);

/// All joints in one frame of the motion.
KIV_READER_API Placements placed(const MotionFigure& figure, const float* row);

/// The moves that undo these: last first, each the other way.
KIV_READER_API std::vector<KivAnimation::PoseStep> undone(const PoseSteps& steps);

/// The moves from one joint's frame to another's: back to what both hang from, then forth. -1 is the scene.
KIV_READER_API std::vector<KivAnimation::PoseStep> stepsBetween(const MotionFigure& figure, std::int32_t from,
                                                                std::int32_t to);

/// The same moves in fewer steps: neighbours that add up are one, what does nothing is gone.
KIV_READER_API std::vector<KivAnimation::PoseStep> simplified(const PoseSteps& steps);

}  // namespace KivReader
