#pragma once

#include <string>

namespace KivPlayer {

/// The folder that holds Data/: where the build lays it out beside the program's own folder, or where it is
/// installed. The first place is the answer where neither is there, so that a message can name it.
std::string findRuntimeRoot();

}  // namespace KivPlayer
