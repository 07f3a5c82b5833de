#include "KivReader/motiondocument.h"
#include "host/KivReader/syntax/parseerror.h"
#include "host/KivReader/syntax/utf8text.h"

namespace KivReader {

namespace {

constexpr std::size_t kLongestQuote = 40;  ///< bytes

bool isControl(std::string_view character)
{
    const auto byte = [&character](std::size_t i) { return static_cast<unsigned char>(character[i]); };
    return byte(0) < 0x20 || byte(0) == 0x7f || (byte(0) == 0xc2 && byte(1) < 0xa0);
}

std::string escaped(unsigned char byte)
{
    constexpr char kDigits[] = "0123456789abcdef";
    return {'\\', 'x', kDigits[byte >> 4], kDigits[byte & 15]};
}

}  // namespace

std::string quoted(std::string_view piece)
{
    std::string text = "'";
    std::string_view rest = piece;
    while (!rest.empty() && piece.size() - rest.size() < kLongestQuote) {
        const std::size_t length = utf8CharacterLength(rest);
        const std::string_view character = rest.substr(0, length > 0 ? length : 1);
        if (length == 0 || isControl(character)) {
            for (const char byte : character)
                text += escaped(static_cast<unsigned char>(byte));
        } else {
            text += character;
        }
        rest.remove_prefix(character.size());
    }
    return text + (rest.empty() ? "'" : "...'");
}

std::string Diagnostic::text() const
{
    if (line == 0)
        return message;
    return "line " + std::to_string(line) + ", column " + std::to_string(column) + ": " + message;
}

}  // namespace KivReader
