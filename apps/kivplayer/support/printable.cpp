#include "apps/kivplayer/support/printable.h"

namespace KivPlayer {

namespace {

constexpr unsigned char kDelete = 0x7F;
constexpr unsigned char kC1Lead = 0xC2;  ///< of the two bytes that U+0080 to U+009F have in UTF-8
constexpr unsigned char kC1First = 0x80;
constexpr unsigned char kC1Last = 0x9F;

bool isControl(unsigned char byte)
{
    return (byte < ' ' && byte != '\n') || byte == kDelete;
}

void appendEscaped(std::string& text, unsigned char byte)
{
    constexpr const char* kDigits = "0123456789ABCDEF";
    text += "\\x";
    text += kDigits[byte / 16];
    text += kDigits[byte % 16];
}

}  // namespace

std::string printable(std::string_view text)
{
    std::string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const auto next =
            i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : static_cast<unsigned char>(0);
        if (byte == kC1Lead && next >= kC1First && next <= kC1Last) {
            appendEscaped(shown, next);
            ++i;
        } else if (isControl(byte)) {
            appendEscaped(shown, byte);
        } else {
            shown += text[i];
        }
    }
    return shown;
}

}  // namespace KivPlayer
