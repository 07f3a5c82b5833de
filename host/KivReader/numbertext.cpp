#include "host/KivReader/numbertext.h"

namespace KivReader {

namespace {

bool isDecimalText(std::string_view token)
{
    return !token.empty() && token.find_first_not_of("+-.0123456789eE") == std::string_view::npos;
}

}  // namespace

Refusal notANumber(std::size_t offset, std::string_view token)
{
    if (token.empty())
        return {offset, "expected a number, found the end of the text"};
    std::string message = "expected a number, found " + quoted(token);
    double value = 0.0;
    if (token.find(',') != std::string_view::npos)
        message += " (decimal comma?)";
    else if (isDecimalText(token) &&
             fast_float::from_chars(token.data(), token.data() + token.size(), value).ptr ==
                 token.data() + token.size())
        message += " (too large)";
    return {offset, message};
}

}  // namespace KivReader
