#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace KivPlayer {

/// A finite decimal number that fills the whole text; no hexadecimal, no locale.
std::optional<double> parseNumber(std::string_view text);
std::optional<long long> parseInteger(std::string_view text);

/// Numbers between commas.
std::optional<std::vector<double>> parseNumbers(std::string_view text, std::size_t count);

}  // namespace KivPlayer
