#pragma once

#include <cstddef>
#include <string_view>

namespace KivReader {

/// Length in bytes of the UTF-8 character at the beginning of the text; 0 where there is none.
std::size_t utf8CharacterLength(std::string_view text);

bool isUtf8(std::string_view text);

}  // namespace KivReader
