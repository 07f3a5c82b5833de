#include "apps/kivplayer/options/outputnames.h"

#include <optional>

#include "apps/kivplayer/support/numbers.h"

namespace KivPlayer {

namespace {

constexpr long long kMaxDigits = 32;

struct Placeholder
{
    char fill = ' ';
    std::size_t width = 0;
};

/// Parses the text between the braces.
std::optional<Placeholder> parsePlaceholder(std::string_view text)
{
    constexpr std::string_view kField = "frame";
    if (text.substr(0, kField.size()) != kField)
        return std::nullopt;
    text.remove_prefix(kField.size());
    Placeholder placeholder;
    if (text.empty())
        return placeholder;
    text.remove_prefix(1);
    if (!text.empty() && text.front() == '0')
        placeholder.fill = '0';
    const std::optional<long long> width = parseInteger(text);
    if (!width || *width < 0 || *width > kMaxDigits || text.front() == '+')
        return std::nullopt;
    placeholder.width = static_cast<std::size_t>(*width);
    return placeholder;
}

}  // namespace

std::variant<OutputNames, std::string> OutputNames::parse(std::string_view text)
{
    const std::string quoted = "\"" + std::string(text) + "\"";
    if (text.empty())
        return std::string("the name of the output is empty");
    OutputNames names;
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string& part = names.m_sequence ? names.m_after : names.m_before;
        const char letter = text[i];
        if ((letter == '{' || letter == '}') && i + 1 < text.size() && text[i + 1] == letter) {
            part += letter;
            ++i;
        } else if (letter == '}') {
            return "a closing brace without an opening one in " + quoted;
        } else if (letter == '{') {
            const std::size_t close = text.find('}', i);
            if (close == std::string_view::npos)
                return "an opening brace without a closing one in " + quoted;
            const std::string_view inner = text.substr(i + 1, close - i - 1);
            const bool colon = inner.size() <= 5 || inner[5] == ':';
            const std::optional<Placeholder> placeholder = parsePlaceholder(inner);
            if (!placeholder || !colon)
                return "{" + std::string(inner) + "} in " + quoted +
                       " is not known: use {frame}, or {frame:04} for four places";
            if (names.m_sequence)
                return "more than one {frame} in " + quoted;
            names.m_sequence = true;
            names.m_fill = placeholder->fill;
            names.m_width = placeholder->width;
            i = close;
        } else {
            part += letter;
        }
    }
    return names;
}

std::string OutputNames::name(unsigned long long frame) const
{
    if (!m_sequence)
        return m_before;
    std::string number = std::to_string(frame);
    if (number.size() < m_width)
        number.insert(0, m_width - number.size(), m_fill);
    return m_before + number + m_after;
}

}  // namespace KivPlayer
