#pragma once

#include <optional>
#include <string_view>

#include "KivReader/motiondocument.h"

namespace KivReader {

/// The channel of this name, in any case.
std::optional<Channel> channelNamed(std::string_view name);

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
