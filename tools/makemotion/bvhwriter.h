// Writes a motion as BVH text.
#pragma once

#include <iosfwd>

#include "tools/makemotion/pose.h"

namespace KivMotion {

/// Centimetres and degrees, rotations Z-X-Y, the root and moving joints with positions, Unix line ends. The
/// same clip always gives the same bytes.
void writeBvh(std::ostream& out, const Clip& clip);

}  // namespace KivMotion
