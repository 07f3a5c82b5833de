#pragma once

#include <string>
#include <string_view>

namespace KivReader {

/// A joint's name as it is kept: as written where that is UTF-8; otherwise the bytes are taken for Latin-1.
std::string jointNameFrom(std::string_view written);

}  // namespace KivReader
