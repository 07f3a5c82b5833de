#pragma once

#include <cstddef>
#include <string_view>

#include "KivCommonDef/sharedlibrary.h"

namespace KivReader {

/// The least number of letters to insert, delete or change that make one text of the other.
KIV_READER_API std::size_t editDistance(std::string_view from, std::string_view to);

}  // namespace KivReader
