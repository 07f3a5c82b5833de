#pragma once

#include "host/KivReader/humanoid/spot.h"

namespace KivReader {

/// @param heading from the avatar's axes to the scene's, at rest.
HipWidth hipWidth(const BodySource& source, const osg::Quat& heading);

/// The hips as the file has them; where their joint is far from where a pelvis is, above the middle between
/// the thighs and rigid with that joint.
Spot hipsSpot(const BodySource& source, const osg::Quat& heading);

}  // namespace KivReader
