#pragma once

#include <string>
#include <string_view>

namespace KivPlayer {

/// The text as a terminal may be shown it: control characters, C0 but the line's end, DEL and the C1 ones of
/// UTF-8, stand as "\x1B". Names come out of files, and a terminal would obey what stands in them.
std::string printable(std::string_view text);

}  // namespace KivPlayer
