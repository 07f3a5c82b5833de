#pragma once

#include <nlohmann/json.hpp>

#include "KivReader/humanoidprofile.h"

namespace KivPlayer {

/// What reading did to a file's joints, and why. Lengths in scene units.
nlohmann::ordered_json profileReport(const KivReader::ProfileRecord& profile);

}  // namespace KivPlayer
