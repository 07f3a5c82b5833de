#include "host/KivReader/syntax/jointname.h"

#include "host/KivReader/syntax/utf8text.h"

namespace KivReader {

namespace {

std::string fromLatin1(std::string_view text)
{
    std::string utf8;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x80) {
            utf8 += character;
        } else {
            utf8 += static_cast<char>(0xc0 | (byte >> 6));
            utf8 += static_cast<char>(0x80 | (byte & 0x3f));
        }
    }
    return utf8;
}

}  // namespace

std::string jointNameFrom(std::string_view written)
{
    return isUtf8(written) ? std::string(written) : fromLatin1(written);
}

}  // namespace KivReader
