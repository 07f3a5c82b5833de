#include "host/KivReader/syntax/channelname.h"

#include "host/KivReader/syntax/textcursor.h"

namespace KivReader {

std::optional<Channel> channelNamed(std::string_view name)
{
    if (name.empty())
        return std::nullopt;
    const std::size_t axis = std::string_view("xyz").find(static_cast<char>(name.front() | 0x20));
    if (axis == std::string_view::npos)
        return std::nullopt;
    if (sameWord(name.substr(1), "rotation"))
        return static_cast<Channel>(axis + 3);
    if (sameWord(name.substr(1), "position"))
        return static_cast<Channel>(axis);
    return std::nullopt;
}

std::optional<Channel> channelBeginning(std::string_view text)
{
    if (text.size() <= kChannelNameLength || !isSpace(text[kChannelNameLength]))
        return std::nullopt;
    return channelNamed(text.substr(0, kChannelNameLength));
}

}  // namespace KivReader
