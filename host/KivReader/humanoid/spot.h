#pragma once

#include <map>
#include <string>

#include "host/KivReader/humanoid/bodyplan.h"

namespace KivReader {

/// Where a joint of the figure to be stands, and what it is rigid with.
struct Spot
{
    std::int32_t source = -1;  ///< the file's joint that carries it
    osg::Vec3d place;          ///< at rest, in the scene
    bool isSource = false;     ///< it is that joint, at its place
    std::string along;         ///< of an inserted joint: the segment that it stands on
};

using Spots = std::map<std::string, Spot>;  ///< by the avatar's names

/// The file's joint, as it is.
Spot spotOf(const BodySource& source, std::size_t joint);

/// Where a chain of the file's ends below this joint: the place farthest
/// from it of all that hangs from it; the joint's own place where nothing does.
osg::Vec3d tipOf(const BodySource& source, std::size_t joint);

}  // namespace KivReader
