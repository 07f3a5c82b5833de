#pragma once

#include <map>
#include <string>

#include "host/KivReader/bodyplan.h"

namespace KivReader {

/// Where a joint of the figure to be stands, and what it is rigid with.
struct Spot
{
    std::int32_t source = -1;
    osg::Vec3d place;
    bool isSource = false;
    std::string along;
};

using Spots = std::map<std::string, Spot>;

/// The file's joint, as it is.
Spot spotOf(const BodySource& source, std::size_t joint);

/// Where a chain of the file's ends below this joint: the place farthest
/// from it of all that hangs from it; the joint's own place where nothing does.
osg::Vec3d tipOf(const BodySource& source, std::size_t joint);

/// Adds the four spine joints, the neck and the head. A joint of the file's is kept where it is about where
/// the avatar has it; else it gives its turns to one that is.
/// @param spots has the hips.
/// @param heading from the avatar's axes to the scene's, at rest.
/// @param hipWidth what chest and pelvis are drawn in proportion to.
void findSpine(Spots& spots, const BodySource& source, const osg::Quat& heading, double hipWidth);

}  // namespace KivReader
