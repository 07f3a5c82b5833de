#include "KivReader/motiondocument.h"
#include "host/KivReader/refusal.h"

namespace KivReader {

namespace {

constexpr std::size_t kLongestQuote = 40;

void appendPrintable(std::string& text, unsigned char byte)
{
    constexpr char kDigits[] = "0123456789abcdef";
    if (byte >= 0x20 && byte < 0x7f) {
        text += static_cast<char>(byte);
    } else {
        text += "\\x";
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
}

}  // namespace

std::string quoted(std::string_view piece)
{
    std::string text = "'";
    for (const char byte : piece.substr(0, kLongestQuote))
        appendPrintable(text, static_cast<unsigned char>(byte));
    if (piece.size() > kLongestQuote)
        text += "...";
    return text + "'";
}

std::string Diagnostic::text() const
{
    if (line == 0)
        return message;
    return "line " + std::to_string(line) + ", column " + std::to_string(column) + ": " + message;
}

}  // namespace KivReader
