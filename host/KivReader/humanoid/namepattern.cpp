#include "host/KivReader/humanoid/profiletable.h"

namespace KivReader {

namespace {

constexpr std::string_view kDigits = "<n>";
constexpr std::string_view kGap = "<_>";

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

bool isGap(char byte)
{
    return byte == ' ' || byte == '_';
}

/// Takes what one element of the pattern stands for off both.
bool takeElement(std::string_view& pattern, std::string_view& name)
{
    if (startsWith(pattern, kDigits)) {
        pattern.remove_prefix(kDigits.size());
        while (!name.empty() && isDigit(name.front()))
            name.remove_prefix(1);
        return true;
    }
    const bool wantsGap = startsWith(pattern, kGap);
    if (name.empty() || !(wantsGap ? isGap(name.front()) : name.front() == pattern.front()))
        return false;
    pattern.remove_prefix(wantsGap ? kGap.size() : 1);
    name.remove_prefix(1);
    return true;
}

}  // namespace

std::string_view behindPrefix(std::string_view prefix, std::string_view name)
{
    while (!prefix.empty()) {
        if (!takeElement(prefix, name))
            return {};
    }
    return name;
}

bool matchesPattern(std::string_view pattern, std::string_view name)
{
    const std::string_view rest = behindPrefix(pattern, name);
    return rest.data() != nullptr && rest.empty();
}

}  // namespace KivReader
