// What a sound piece list is; looked at before a file is written.
#pragma once

#include <string>
#include <vector>

#include "tools/makeavatar/pieces.h"

namespace KivAvatarMaker {

/// Empty if every piece is sound, else one sentence on the first fault: unknown joints, a name used twice, a
/// joint without a piece (those inside the palms may go without), an index out of range, a number that is not
/// finite, a normal that is not of unit length, a skin that is not closed.
std::string faultOf(const std::vector<Piece>& pieces);

/// The same for one mesh.
std::string faultOf(const Mesh& mesh);

}  // namespace KivAvatarMaker
