#pragma once

#include <osg/Quat>

#include "host/KivReader/humanoid/posedbody.h"

namespace KivReader {

/// Where all of the file's joints are while the person stands: what the avatar is put onto.
struct RestPose
{
    Placements placements;       ///< of the file's joints
    osg::Quat heading;           ///< from the avatar's axes to those of the person who stands there
    bool solesAreLevel = false;  ///< the soles are known to lie level in it, however the feet are drawn
};

/// The person put upright piece by piece, each along the avatar's and turned about its length so that knees,
/// elbows, soles, hips and shoulders lie as the avatar's: made from posed frames alone, so that it is the
/// same whatever all channels at 0 show. The body has one pose at least.
RestPose restFromMotion(const PosedBody& body);

/// A pose that is there, such as that of the first frame or that with all channels at 0.
RestPose restAsItIs(Placements placements, const JointMatching& matching);

}  // namespace KivReader
