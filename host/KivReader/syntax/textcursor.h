#pragma once

#include <cstddef>
#include <string_view>

namespace KivReader {

inline bool isLineEnd(char byte)
{
    return byte == '\n' || byte == '\r';
}

/// Blank, tab, line feed, vertical tab, form feed, carriage return: the last five follow each other.
inline bool isSpace(char byte)
{
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

inline bool isBlank(char byte)
{
    return isSpace(byte) && !isLineEnd(byte);
}

/// LF, CR LF and CR end a line; of CR LF this is true at the LF.
inline bool endsLine(std::string_view text, std::size_t offset)
{
    if (text[offset] == '\r')
        return offset + 1 == text.size() || text[offset + 1] != '\n';
    return text[offset] == '\n';
}

/// Compares without case, whatever the locale says.
/// @param word ASCII letters alone.
bool startsWithWord(std::string_view text, std::string_view word);

/// The usual spelling is seen without a call.
inline bool sameWord(std::string_view text, std::string_view word)
{
    return text.size() == word.size() && (text == word || startsWithWord(text, word));
}

std::string_view trimmed(std::string_view text);

/// Walks over a text token by token. A token is a brace, or everything up to white space or a brace.
class TextCursor
{
public:
    explicit TextCursor(std::string_view text, std::size_t offset = 0) : m_text(text), m_offset(offset) {}

    std::size_t offset() const { return m_offset; }
    /// Of the offset, counting from 1 at the offset that the cursor was made for.
    std::size_t line() const { return m_line; }
    std::string_view text() const { return m_text; }
    std::string_view rest() const { return m_text.substr(m_offset); }
    bool atEnd() const { return m_offset == m_text.size(); }

    void skipSpace();
    /// Skips white space, then looks at the token there without taking it; empty at the end of the text.
    std::string_view peek()
    {
        if (m_token.empty())
            findToken();
        return m_token;
    }
    std::string_view take()
    {
        const std::string_view token = peek();
        moveTo(m_offset + token.size());
        return token;
    }
    /// Takes the next token if it is this word, in any case.
    bool takeWord(std::string_view word);
    /// The rest of the line, or what stands before an opening brace on it, trimmed.
    std::string_view takeRestBeforeBrace();
    /// Forward, within the line.
    void moveTo(std::size_t offset)
    {
        m_offset = offset;
        m_token = {};
    }

private:
    void findToken();

    std::string_view m_text;
    std::size_t m_offset;
    std::size_t m_line = 1;
    std::string_view m_token;  ///< what was peeked at m_offset; empty: nothing yet
};

}  // namespace KivReader
