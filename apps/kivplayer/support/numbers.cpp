#include "apps/kivplayer/support/numbers.h"

#include <charconv>
#include <cmath>

namespace KivPlayer {

namespace {

template <typename Number>
std::optional<Number> parseWhole(std::string_view text)
{
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    Number value{};
    const char* end = text.data() + text.size();
    const auto [stop, problem] = std::from_chars(text.data(), end, value);
    if (problem != std::errc() || stop != end || text.empty())
        return std::nullopt;
    return value;
}

template <typename Number>
std::string shortest(Number value)
{
    if (!std::isfinite(value))
        return std::string();
    char text[32];
    const auto [end, problem] = std::to_chars(text, text + sizeof(text), value + Number(0));
    return problem == std::errc() ? std::string(text, end) : std::string();
}

}  // namespace

std::string numberText(double value)
{
    return shortest(value);
}

std::string numberText(float value)
{
    return shortest(value);
}

std::optional<double> parseNumber(std::string_view text)
{
    const std::optional<double> value = parseWhole<double>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<long long> parseInteger(std::string_view text)
{
    return parseWhole<long long>(text);
}

std::optional<std::vector<double>> parseNumbers(std::string_view text, std::size_t count)
{
    std::vector<double> values;
    for (bool more = true; more;) {
        const std::size_t comma = text.find(',');
        more = comma != std::string_view::npos;
        const std::optional<double> value = parseNumber(text.substr(0, comma));
        if (!value)
            return std::nullopt;
        values.push_back(*value);
        text.remove_prefix(more ? comma + 1 : text.size());
    }
    if (values.size() != count)
        return std::nullopt;
    return values;
}

}  // namespace KivPlayer
