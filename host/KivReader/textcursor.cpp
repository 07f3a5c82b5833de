#include "host/KivReader/textcursor.h"

namespace KivReader {

namespace {

char lowered(char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

bool isBrace(char byte)
{
    return byte == '{' || byte == '}';
}

}  // namespace

bool sameWord(std::string_view left, std::string_view right)
{
    return left.size() == right.size() && startsWithWord(left, right);
}

bool startsWithWord(std::string_view text, std::string_view word)
{
    if (text.size() < word.size())
        return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (lowered(text[i]) != lowered(word[i]))
            return false;
    }
    return true;
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
    while (m_offset < m_text.size() && isSpace(m_text[m_offset]))
        ++m_offset;
}

std::string_view TextCursor::peek()
{
    if (!m_token.empty())
        return m_token;
    skipSpace();
    std::size_t end = m_offset;
    if (end < m_text.size() && isBrace(m_text[end])) {
        ++end;
    } else {
        while (end < m_text.size() && !isSpace(m_text[end]) && !isBrace(m_text[end]))
            ++end;
    }
    m_token = m_text.substr(m_offset, end - m_offset);
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
