#include "host/KivReader/syntax/numbertext.h"

namespace KivReader {

namespace {

/// Whether it is a number as far as its spelling goes: then only its size is wrong.
bool isDecimalText(std::string_view token)
{
    if (token.empty() || token.find_first_not_of("+-.0123456789eE") != std::string_view::npos)
        return false;
    const char* const last = token.data() + token.size();
    double value = 0.0;
    return fast_float::from_chars(skipPlus(token.data(), last), last, value).ptr == last;
}

}  // namespace

ParseError notANumber(std::size_t offset, std::string_view token)
{
    if (token.empty())
        return {offset, "expected a number, found the end of the text"};
    std::string message = "expected a number, found " + quoted(token);
    if (token.find(',') != std::string_view::npos)
        message += " (decimal comma?)";
    else if (isDecimalText(token))
        message += " (too large)";
    return {offset, message};
}

}  // namespace KivReader
