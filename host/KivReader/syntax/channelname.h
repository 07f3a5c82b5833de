#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "KivReader/motiondocument.h"

namespace KivReader {

constexpr std::size_t kChannelNameLength = 9;  ///< of each of the six names

/// The channel of this name, in any case.
std::optional<Channel> channelNamed(std::string_view name);

/// The channel whose name the text begins with, white space behind it. A name that ends the text or stands
/// before a brace is not seen.
std::optional<Channel> channelBeginning(std::string_view text);

inline bool isPosition(Channel channel)
{
    return channel <= Channel::Zposition;
}

/// 0, 1 or 2 for x, y, z of the file's frame.
inline unsigned axisOf(Channel channel)
{
    return static_cast<unsigned>(channel) % 3;
}

}  // namespace KivReader
