#include "host/KivReader/syntax/textcursor.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace KivReader {

namespace {

constexpr char kCaseBit = 0x20;  ///< the only difference between the two cases of a letter

enum class ByteKind : std::uint8_t
{
    Ordinary,
    Blank,
    LineEnd,
    Brace
};

constexpr std::array<ByteKind, 256> byteKinds()
{
    std::array<ByteKind, 256> kinds{};
    for (const char blank : {' ', '\t', '\v', '\f'})
        kinds[static_cast<unsigned char>(blank)] = ByteKind::Blank;
    for (const char lineEnd : {'\n', '\r'})
        kinds[static_cast<unsigned char>(lineEnd)] = ByteKind::LineEnd;
    for (const char brace : {'{', '}'})
        kinds[static_cast<unsigned char>(brace)] = ByteKind::Brace;
    return kinds;
}

ByteKind kindOf(char byte)
{
    static constexpr std::array<ByteKind, 256> kKinds = byteKinds();
    return kKinds[static_cast<unsigned char>(byte)];
}

bool sameLetters(std::string_view text, std::string_view word)
{
    for (std::size_t i = 0; i < word.size(); ++i) {
        if ((text[i] | kCaseBit) != (word[i] | kCaseBit))
            return false;
    }
    return true;
}

}  // namespace

bool startsWithWord(std::string_view text, std::string_view word)
{
    const std::string_view start = text.substr(0, word.size());
    return start == word || (start.size() == word.size() && sameLetters(start, word));
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

void TextCursor::skipSpace()
{
    const char* const begin = m_text.data();
    const char* const last = begin + m_text.size();
    const char* at = begin + m_offset;
    for (; at != last; ++at) {
        const ByteKind kind = kindOf(*at);
        if (kind == ByteKind::Blank)
            continue;
        if (kind != ByteKind::LineEnd)
            break;
        if (endsLine(m_text, static_cast<std::size_t>(at - begin)))
            ++m_line;
    }
    m_offset = static_cast<std::size_t>(at - begin);
}

void TextCursor::findToken()
{
    skipSpace();
    const char* const begin = m_text.data() + m_offset;
    const char* const last = m_text.data() + m_text.size();
    const char* end = begin;
    while (end != last && kindOf(*end) == ByteKind::Ordinary)
        ++end;
    if (end == begin && end != last)
        ++end;  // a brace
    m_token = std::string_view(begin, static_cast<std::size_t>(end - begin));
}

bool TextCursor::takeWord(std::string_view word)
{
    if (!sameWord(peek(), word))
        return false;
    take();
    return true;
}

std::string_view TextCursor::takeRestBeforeBrace()
{
    const std::string_view rest = m_text.substr(m_offset);
    const auto end = std::find_if(rest.begin(), rest.end(),
                                  [](char byte) { return byte == '{' || kindOf(byte) == ByteKind::LineEnd; });
    const auto length = static_cast<std::size_t>(end - rest.begin());
    moveTo(m_offset + length);
    return trimmed(rest.substr(0, length));
}

}  // namespace KivReader
