#pragma once

#include <string>
#include <vector>

#include "KivReader/humanoidprofile.h"
#include "host/KivReader/figure/figurepose.h"
#include "host/KivReader/figure/motionfigure.h"
#include "host/KivReader/humanoid/jointmatching.h"
#include "host/KivReader/humanoid/posesample.h"

namespace KivReader {

/// A motion together with what its joints are: all that the profile step looks at.
struct MatchedMotion
{
    const MotionDocument& document;
    const JointMatching& matching;
    const RestFigure& avatar;

    const float* row(std::size_t frame) const;
    /// Frames over the whole motion, the first one among them, not more than this many.
    std::vector<std::size_t> sampledFrames(std::size_t atMost) const;
    /// The rest pose: all channels 0, joints at their offsets.
    static Placements atRest(const MotionFigure& figure);
};

/// The middle between two joints of the avatar's names, which both are there.
osg::Vec3d middle(const Placements& placements, const JointMatching& matching, const std::string& left,
                  const std::string& right);

/// Finds out how the file's space lies in the scene's, where the options leave it open, and says why.
/// @param raw the figure made with the default frame, and a sample of its poses.
FileFrame findFrame(const MatchedMotion& motion, const MotionFigure& raw, const PoseSample& sample,
                    const ProfileOptions& options, ProfileRecord& record);

/// How high the figure is standing up, from its legs and trunk, in the figure's units.
double standingHeight(const MatchedMotion& motion, const MotionFigure& figure, const PoseSample& sample);

}  // namespace KivReader
