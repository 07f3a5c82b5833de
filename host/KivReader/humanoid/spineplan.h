#pragma once

#include "host/KivReader/humanoid/spot.h"

namespace KivReader {

/// Adds the four spine joints, the neck and the head. A joint of the file's is kept where it is about where
/// the avatar has it; else it gives its turns to one that is.
/// @param spots has the hips.
/// @param heading from the avatar's axes to the scene's, at rest.
/// @param hipWidth what chest and pelvis are drawn in proportion to.
void findSpine(Spots& spots, const BodySource& source, const osg::Quat& heading, double hipWidth);

}  // namespace KivReader
