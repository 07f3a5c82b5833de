#pragma once

#include <fast_float/fast_float.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <string_view>
#include <system_error>

#include "host/KivReader/syntax/parseerror.h"
#include "host/KivReader/syntax/textcursor.h"

namespace KivReader {

/// Where the number begins behind a leading "+", which fast_float does not know.
inline const char* skipPlus(const char* first, const char* last)
{
    const bool isPlus = last - first > 1 && *first == '+' && first[1] != '-';
    return isPlus ? first + 1 : first;
}

/// Reads one decimal number at `first`, independent of the locale. A leading "+" is taken, too small a number
/// is 0.
/// @return behind the number, or null where there is none that is finite and ends at white space or at
/// `last`.
template <typename Real>
const char* readNumber(const char* first, const char* last, Real& value)
{
    const fast_float::from_chars_result result = fast_float::from_chars(skipPlus(first, last), last, value);
    if (result.ec != std::errc() && !(result.ec == std::errc::result_out_of_range && value == Real(0)))
        return nullptr;
    // "nan", "inf" and what overflows arrive here as values: one comparison refuses all three.
    if (!(std::fabs(value) <= std::numeric_limits<Real>::max()))
        return nullptr;
    if (result.ptr != last && !isSpace(*result.ptr))
        return nullptr;
    return result.ptr;
}

/// A number that is all of the token.
template <typename Real>
bool readWholeNumber(std::string_view token, Real& value)
{
    const char* last = token.data() + token.size();
    return !token.empty() && readNumber(token.data(), last, value) == last;
}

/// Takes the next token if it is a number, of this size at most.
template <typename Real>
bool takeNumber(TextCursor& cursor, Real largest, Real& value)
{
    cursor.skipSpace();
    const std::string_view rest = cursor.rest();
    if (rest.empty() || rest.front() >= 'A')
        return false;  // a word or a brace, most often
    // Most numbers end at white space: they are read without looking for their end first.
    const char* const end = readNumber(rest.data(), rest.data() + rest.size(), value);
    if ((end == nullptr && !readWholeNumber(cursor.peek(), value)) || std::fabs(value) > largest)
        return false;
    cursor.moveTo(cursor.offset() +
                  (end != nullptr ? static_cast<std::size_t>(end - rest.data()) : cursor.peek().size()));
    return true;
}

/// Why the token at `offset` is no number.
ParseError notANumber(std::size_t offset, std::string_view token);

}  // namespace KivReader
