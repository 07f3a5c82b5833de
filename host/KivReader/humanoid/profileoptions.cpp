#include <array>
#include <string_view>
#include <utility>

#include "KivReader/humanoidprofile.h"
#include "host/KivReader/syntax/numbertext.h"
#include "host/KivReader/syntax/parseerror.h"
#include "host/KivReader/syntax/textcursor.h"

namespace KivReader {

namespace {

constexpr std::array<std::pair<std::string_view, double>, 6> kUnitNames = {
    {{"cm", 1.0}, {"m", 100.0}, {"mm", 0.1}, {"inch", 2.54}, {"dm", 10.0}, {"cmu", 2.54 / 0.45}}};

constexpr std::array<std::pair<std::string_view, ProfileOptions::Up>, 7> kUpNames = {
    {{"auto", ProfileOptions::Up::Auto},
     {"y", ProfileOptions::Up::Y},
     {"z", ProfileOptions::Up::Z},
     {"x", ProfileOptions::Up::X},
     {"-y", ProfileOptions::Up::MinusY},
     {"-z", ProfileOptions::Up::MinusZ},
     {"-x", ProfileOptions::Up::MinusX}}};

bool takeUpAxis(std::string_view value, ProfileOptions& options)
{
    for (const auto& [name, up] : kUpNames) {
        if (sameWord(value, name)) {
            options.up = up;
            return true;
        }
    }
    return false;
}

bool takeUnit(std::string_view value, ProfileOptions& options)
{
    if (sameWord(value, "auto")) {
        options.unit = 0.0;
        return true;
    }
    for (const auto& [name, centimetres] : kUnitNames) {
        if (sameWord(value, name)) {
            options.unit = centimetres;
            return true;
        }
    }
    return readWholeNumber(value, options.unit) && options.unit > 0.0;
}

bool takeProfile(std::string_view value, ProfileOptions& options)
{
    options.use = sameWord(value, "off") ? ProfileOptions::Use::Off : ProfileOptions::Use::On;
    options.tableFile.clear();
    if (options.use == ProfileOptions::Use::On && !sameWord(value, "auto"))
        options.tableFile = value;
    return !value.empty();
}

/// @return false for a value that cannot be obeyed.
bool takeWord(std::string_view name, std::string_view value, ProfileOptions& options)
{
    if (name == "up")
        return takeUpAxis(value, options);
    if (name == "unit")
        return takeUnit(value, options);
    if (name == "profile")
        return takeProfile(value, options);
    if (name == "firstFrameIsRest")
        options.firstFrameIsRest = true;
    return true;
}

struct Word
{
    std::string_view whole, name, value;
};

/// The next word; a value may stand in double quotes, with blanks in it.
Word takeNext(std::string_view& words)
{
    std::size_t end = 0;
    bool isQuoted = false;
    while (end < words.size() && (isQuoted || !isSpace(words[end]))) {
        isQuoted = isQuoted != (words[end] == '"');
        ++end;
    }
    Word word;
    word.whole = words.substr(0, end);
    words.remove_prefix(end);
    const std::size_t sign = word.whole.find('=');
    word.name = word.whole.substr(0, sign);
    if (sign != std::string_view::npos)
        word.value = word.whole.substr(sign + 1);
    if (word.value.size() >= 2 && word.value.front() == '"' && word.value.back() == '"')
        word.value = word.value.substr(1, word.value.size() - 2);
    return word;
}

}  // namespace

ProfileOptions profileOptionsFrom(const std::string& words, std::string& error)
{
    ProfileOptions options;
    options.use = ProfileOptions::Use::Off;
    error.clear();
    for (std::string_view rest = trimmed(words); !rest.empty() && error.empty(); rest = trimmed(rest)) {
        const Word word = takeNext(rest);
        if (!takeWord(word.name, word.value, options))
            error = "reading option " + quoted(word.whole) + " cannot be obeyed";
    }
    return options;
}

}  // namespace KivReader
