#include "host/KivReader/syntax/utf8text.h"

namespace KivReader {

std::size_t utf8CharacterLength(std::string_view text)
{
    const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (text.empty())
        return 0;
    const unsigned char lead = byte(0);
    if (lead < 0x80)
        return 1;
    const std::size_t length = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
    if (lead < 0xc2 || lead > 0xf4 || text.size() < length)
        return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xc0) != 0x80)
            return 0;
    }
    const bool overlong = (lead == 0xe0 && byte(1) < 0xa0) || (lead == 0xf0 && byte(1) < 0x90);
    const bool surrogate = lead == 0xed && byte(1) >= 0xa0;
    const bool beyondUnicode = lead == 0xf4 && byte(1) >= 0x90;
    return overlong || surrogate || beyondUnicode ? 0 : length;
}

bool isUtf8(std::string_view text)
{
    unsigned char bits = 0;
    for (const char byte : text)
        bits |= static_cast<unsigned char>(byte);
    if (bits < 0x80)
        return true;  // ASCII, most often
    while (!text.empty()) {
        const std::size_t length = utf8CharacterLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

}  // namespace KivReader
