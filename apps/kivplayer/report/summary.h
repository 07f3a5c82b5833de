#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace KivPlayer {

/// An actor's part of the report in a few lines for people, each with its newline.
std::string summaryOf(const nlohmann::ordered_json& actor);

}  // namespace KivPlayer
