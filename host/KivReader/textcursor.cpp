#include "host/KivReader/textcursor.h"

namespace KivReader {

namespace {

constexpr char kCaseBit = 0x20;  ///< the only difference between the two cases of a letter

bool isBrace(char byte)
{
    return byte == '{' || byte == '}';
}

bool endsToken(char byte)
{
    const bool isOrdinary = byte > ' ' && byte < '{';  // most bytes are: one look is enough
    return !isOrdinary && (isSpace(byte) || isBrace(byte));
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
    while (offset < m_text.size() && isSpace(m_text[offset]))
        ++offset;
    m_offset = offset;
}

std::string_view TextCursor::peek()
{
    if (!m_token.empty())
        return m_token;
    skipSpace();
    const char* const begin = m_text.data() + m_offset;
    const char* const last = m_text.data() + m_text.size();
    const char* end = begin;
    if (end != last && isBrace(*end)) {
        ++end;
    } else {
        while (end != last && !endsToken(*end))
            ++end;
    }
    m_token = std::string_view(begin, static_cast<std::size_t>(end - begin));
    return m_token;
}

std::string_view TextCursor::take()
{
    const std::string_view token = peek();
    moveTo(m_offset + token.size());
    return token;
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
