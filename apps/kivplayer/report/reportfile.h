#pragma once

#include <nlohmann/json.hpp>

#include <string>

#include "apps/kivplayer/support/console.h"

namespace KivPlayer {

/// Writes a fit report, whole or not at all; what cannot be written is reported.
/// @param file "-" is stdout.
void writeReport(const std::string& file, const nlohmann::ordered_json& report, Console& console);

}  // namespace KivPlayer
