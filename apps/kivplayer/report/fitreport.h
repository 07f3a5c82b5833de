#pragma once

#include <nlohmann/json.hpp>

#include <map>
#include <string>
#include <vector>

#include "apps/kivplayer/content/avatarfile.h"
#include "apps/kivplayer/session/session.h"
#include "apps/kivplayer/support/console.h"

namespace KivPlayer {

/// How every actor was dressed, told from what a host can see: the dressed skeletons and the avatar file.
/// Lengths in scene units, times in seconds. Read between frames.
nlohmann::ordered_json fitReport(const std::map<unsigned, LoadedActor>& actors, const AvatarFile& avatar,
                                 const std::vector<Diagnostic>& errors);

/// The known name that differs least from a joint's name, once capitals, separators and what stands before
/// the last colon are left out of account; empty where none is near.
std::string nearestName(const std::string& joint, const std::vector<std::string>& known);

}  // namespace KivPlayer
