#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace KivReader {

/// The characters of a UTF-8 text; what is no UTF-8 is left out.
std::vector<char32_t> lettersOf(std::string_view utf8);

std::string utf8From(const std::vector<char32_t>& letters);

/// Full-width letters and digits as the narrow ones, lower case as it is.
char32_t folded(char32_t letter);

/// From the first letter on that is beyond Latin, Greek and Cyrillic, scripts need no separators.
bool isIdeograph(char32_t letter);

/// A joint's name as its words: split where case changes, where digits begin and end and at all that is
/// neither letter nor digit; in lower case. A namespace, up to the last ':' or '|', is dropped.
std::vector<std::string> wordsOf(std::string_view name);

bool isNumber(const std::string& word);

}  // namespace KivReader
