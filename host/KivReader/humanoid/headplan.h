#pragma once

#include "host/KivReader/humanoid/spot.h"

namespace KivReader {

/// Adds the neck and the head. Where the file has none, or has them where none is drawn, they stand in the
/// avatar's proportions above the arms.
/// @param top the last of the file's spine joints; the hips where it has none.
/// @param up of length 1, along the trunk at rest.
void findHead(Spots& spots, const BodySource& source, std::int32_t top, const osg::Vec3d& up);

}  // namespace KivReader
