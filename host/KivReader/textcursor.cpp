#include "host/KivReader/textcursor.h"

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
    for (const unsigned char blank : {' ', '\t', '\v', '\f'})
        kinds[blank] = ByteKind::Blank;
    for (const unsigned char lineEnd : {'\n', '\r'})
        kinds[lineEnd] = ByteKind::LineEnd;
    for (const unsigned char brace : {'{', '}'})
        kinds[brace] = ByteKind::Brace;
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
    std::size_t offset = m_offset;
    for (; offset < m_text.size(); ++offset) {
        const ByteKind kind = kindOf(m_text[offset]);
        if (kind == ByteKind::Blank)
            continue;
        if (kind != ByteKind::LineEnd)
            break;
        if (endsLine(m_text, offset))
            ++m_line;
    }
    m_offset = offset;
}

void TextCursor::findToken()
{
    skipSpace();
    std::size_t end = m_offset;
    while (end < m_text.size() && kindOf(m_text[end]) == ByteKind::Ordinary)
        ++end;
    const bool isBrace = end == m_offset && end < m_text.size();
    m_token = m_text.substr(m_offset, isBrace ? 1 : end - m_offset);
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
    const std::size_t start = m_offset;
    m_token = {};
    while (m_offset < m_text.size() && !isLineEnd(m_text[m_offset]) && m_text[m_offset] != '{')
        ++m_offset;
    return trimmed(m_text.substr(start, m_offset - start));
}

}  // namespace KivReader
