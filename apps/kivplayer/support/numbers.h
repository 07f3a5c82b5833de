#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace KivPlayer {

/// A finite decimal number that fills the whole text; no hexadecimal, no locale.
std::optional<double> parseNumber(std::string_view text);
std::optional<long long> parseInteger(std::string_view text);

/// Numbers between commas.
std::optional<std::vector<double>> parseNumbers(std::string_view text, std::size_t count);

/// The shortest text that reads back as the same number, with a decimal point under every locale; empty for
/// what is no finite number.
std::string numberText(double value);
std::string numberText(float value);

}  // namespace KivPlayer
