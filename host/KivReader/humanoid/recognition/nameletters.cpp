#include "host/KivReader/humanoid/recognition/nameletters.h"

#include <algorithm>
#include <cstdint>

#include "host/KivReader/syntax/utf8text.h"

namespace KivReader {

namespace {

constexpr char32_t kFullWidthFirst = 0xff01;
constexpr char32_t kFullWidthLast = 0xff5e;
constexpr char32_t kToNarrow = 0xfee0;
/// What is longer is no name that anybody gave: its end alone is read.
constexpr std::size_t kLongestName = 96;

enum class LetterKind : std::uint8_t
{
    None,
    Lower,
    Upper,
    Digit,
    Ideograph
};

LetterKind letterKindOf(char32_t letter)
{
    if (letter >= 'a' && letter <= 'z')
        return LetterKind::Lower;
    if (letter >= 'A' && letter <= 'Z')
        return LetterKind::Upper;
    if (letter >= '0' && letter <= '9')
        return LetterKind::Digit;
    if (letter < 0x80)
        return LetterKind::None;
    return isIdeograph(letter) ? LetterKind::Ideograph : LetterKind::Lower;
}

/// Of the letters of Latin-1 with marks, from 0xc0 to 0xde and again from 0xe0 to 0xfe.
constexpr std::string_view kWithoutMarks = "aaaaaaaceeeeiiiidnooooo ouuuuyt";

char32_t lowered(char32_t letter)
{
    if (letter >= 'A' && letter <= 'Z')
        return letter + 0x20;
    const char32_t mark = (letter | 0x20) - 0xe0;
    return letter >= 0xc0 && letter <= 0xfe && mark < kWithoutMarks.size()
               ? static_cast<char32_t>(kWithoutMarks[mark])
               : letter;
}

void append(std::string& utf8, char32_t letter)
{
    if (letter < 0x80) {
        utf8 += static_cast<char>(letter);
        return;
    }
    if (letter < 0x800) {
        utf8 += static_cast<char>(0xc0 | (letter >> 6));
    } else {
        if (letter < 0x10000) {
            utf8 += static_cast<char>(0xe0 | (letter >> 12));
        } else {
            utf8 += static_cast<char>(0xf0 | (letter >> 18));
            utf8 += static_cast<char>(0x80 | ((letter >> 12) & 0x3f));
        }
        utf8 += static_cast<char>(0x80 | ((letter >> 6) & 0x3f));
    }
    utf8 += static_cast<char>(0x80 | (letter & 0x3f));
}

/// "LThigh" is L and Thigh, "IKHand" is IK and Hand.
bool beginsWord(const std::vector<char32_t>& letters, std::size_t i)
{
    const LetterKind before = letterKindOf(letters[i - 1]);
    const LetterKind now = letterKindOf(letters[i]);
    if (before != now && !(before == LetterKind::Upper && now == LetterKind::Lower))
        return true;
    const bool nextIsLower = i + 1 < letters.size() && letterKindOf(letters[i + 1]) == LetterKind::Lower;
    return now == LetterKind::Upper && before == LetterKind::Upper && nextIsLower;
}

/// Some exporters write "FBXASC046" for a letter that they do not like, here the one of code 46.
std::vector<char32_t> unescaped(const std::vector<char32_t>& letters)
{
    static const std::vector<char32_t> s_mark = {'F', 'B', 'X', 'A', 'S', 'C'};
    std::vector<char32_t> plain;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        const std::size_t digits = i + s_mark.size();
        const auto isDigit = [&](std::size_t at) { return letterKindOf(letters[at]) == LetterKind::Digit; };
        const bool isEscape =
            digits + 3 <= letters.size() &&
            std::equal(s_mark.begin(), s_mark.end(), letters.begin() + static_cast<std::ptrdiff_t>(i)) &&
            isDigit(digits) && isDigit(digits + 1) && isDigit(digits + 2);
        if (!isEscape) {
            plain.push_back(letters[i]);
            continue;
        }
        plain.push_back((letters[digits] - '0') * 100 + (letters[digits + 1] - '0') * 10 +
                        letters[digits + 2] - '0');
        i = digits + 2;
    }
    return plain;
}

std::size_t behindNamespace(const std::vector<char32_t>& letters)
{
    for (std::size_t i = letters.size(); i-- > 0;) {
        if (letters[i] == ':' || letters[i] == '|')
            return i + 1;
    }
    return 0;
}

}  // namespace

bool isIdeograph(char32_t letter)
{
    return letter >= 0x2e80;
}

char32_t folded(char32_t letter)
{
    return letter >= kFullWidthFirst && letter <= kFullWidthLast ? letter - kToNarrow : letter;
}

std::vector<char32_t> lettersOf(std::string_view utf8)
{
    std::vector<char32_t> letters;
    letters.reserve(utf8.size());
    while (!utf8.empty()) {
        const std::size_t length = utf8CharacterLength(utf8);
        const auto byte = [&utf8](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
        if (length > 0) {
            char32_t letter = length == 1 ? byte(0) : byte(0) & (0x7fu >> length);
            for (std::size_t i = 1; i < length; ++i)
                letter = (letter << 6) | (byte(i) & 0x3fu);
            letters.push_back(letter);
        }
        utf8.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return letters;
}

std::string utf8From(const std::vector<char32_t>& letters)
{
    std::string utf8;
    for (const char32_t letter : letters)
        append(utf8, letter);
    return utf8;
}

std::vector<std::string> wordsOf(std::string_view name)
{
    std::vector<char32_t> letters = unescaped(lettersOf(name));
    if (letters.size() > kLongestName)
        letters.erase(letters.begin(), letters.end() - static_cast<std::ptrdiff_t>(kLongestName));
    std::transform(letters.begin(), letters.end(), letters.begin(), folded);
    std::vector<std::string> words;
    const std::size_t first = behindNamespace(letters);
    for (std::size_t i = first; i < letters.size(); ++i) {
        if (letterKindOf(letters[i]) == LetterKind::None)
            continue;
        if (i == first || words.empty() || beginsWord(letters, i))
            words.emplace_back();
        append(words.back(), lowered(letters[i]));
    }
    return words;
}

bool isNumber(const std::string& word)
{
    return !word.empty() &&
           std::all_of(word.begin(), word.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace KivReader
