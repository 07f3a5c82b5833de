#include "host/KivReader/humanoid/recognition/vocabulary.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "host/KivReader/syntax/numbertext.h"
#include "host/KivReader/syntax/textcursor.h"

namespace KivReader {

namespace {

constexpr std::array<std::string_view, 12> kPartNames = {"hips",   "spine",    "neck",    "head",
                                                         "collar", "upperarm", "forearm", "hand",
                                                         "thigh",  "shin",     "foot",    "toes"};
constexpr std::array<std::string_view, 6> kFingerNames = {"thumb", "index", "middle", "ring", "pinky", "any"};

template <std::size_t Count>
std::size_t indexIn(const std::array<std::string_view, Count>& names, std::string_view name)
{
    const auto* found = std::find(names.begin(), names.end(), name);
    if (found == names.end())
        throw std::runtime_error("unknown kind " + std::string(name));
    return static_cast<std::size_t>(found - names.begin());
}

bool hasKind(std::string_view keyword)
{
    return keyword == "part" || keyword == "perhaps" || keyword == "side" || keyword == "finger" ||
           keyword == "bytes";
}

std::uint16_t codeFrom(std::string_view hex)
{
    unsigned code = 0;
    for (const char digit : hex)
        code = code * 16 + static_cast<unsigned>(digit <= '9' ? digit - '0' : digit - 'A' + 10);
    return static_cast<std::uint16_t>(code);
}

constexpr std::string_view kBuiltInWords =
#include "bodywordstext.inc"
    ;

}  // namespace

Vocabulary::Vocabulary(std::string_view text)
{
    std::size_t lineNumber = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        takeStatement(trimmed(text.substr(0, end)), ++lineNumber);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void Vocabulary::takeStatement(std::string_view line, std::size_t lineNumber)
{
    if (line.empty() || line.front() == '#')
        return;
    TextCursor cursor(line);
    const std::string_view keyword = cursor.take();
    const std::string_view kind = hasKind(keyword) ? cursor.take() : std::string_view();
    try {
        for (std::string_view word = cursor.take(); !word.empty(); word = cursor.take()) {
            if (keyword == "bytes")
                (kind == "sjis" ? m_shiftJis : m_gbk)[codeFrom(cursor.take())] = word;
            else
                note(keyword, kind, std::string(word));
        }
    } catch (const std::runtime_error& failure) {
        throw std::runtime_error("line " + std::to_string(lineNumber) + ": " + failure.what());
    }
}

void Vocabulary::note(std::string_view keyword, std::string_view kind, const std::string& word)
{
    m_longest = std::max(m_longest, word.size());
    WordMeaning& meaning = m_words[word];
    if (keyword == "part")
        meaning.parts |= static_cast<Parts>(1u << indexIn(kPartNames, kind));
    else if (keyword == "perhaps")
        meaning.perhaps |= static_cast<Parts>(1u << indexIn(kPartNames, kind));
    else if (keyword == "side")
        meaning.side = kind == "left" ? Side::Left : Side::Right;
    else if (keyword == "finger")
        meaning.finger = static_cast<std::int8_t>(indexIn(kFingerNames, kind));
    else if (keyword == "palm")
        meaning.isPalm = true;
    else if (keyword == "noise")
        meaning.isNoise = true;
    else if (keyword == "tip")
        meaning.isTip = true;
    else if (keyword == "never")
        meaning.isNever = true;
    else if (keyword == "beast")
        meaning.isBeast = true;
    else
        throw std::runtime_error("unknown statement " + std::string(keyword));
}

const WordMeaning* Vocabulary::find(const std::string& word) const
{
    const auto found = m_words.find(word);
    return found == m_words.end() ? nullptr : &found->second;
}

std::string Vocabulary::decodedWith(const LetterTable& table, std::string_view bytes, std::size_t& known)
{
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (byte < 0x80) {
            text += bytes[i];
            continue;
        }
        if (i + 1 == bytes.size())
            break;
        const auto next = static_cast<unsigned char>(bytes[++i]);
        const auto letter = table.find(static_cast<std::uint16_t>(byte << 8 | next));
        known += letter == table.end() ? 0 : 1;
        text += letter == table.end() ? "_" : letter->second;
    }
    return text;
}

std::string Vocabulary::decoded(std::string_view bytes) const
{
    std::size_t knownInShiftJis = 0;
    std::size_t knownInGbk = 0;
    std::string shiftJis = decodedWith(m_shiftJis, bytes, knownInShiftJis);
    std::string gbk = decodedWith(m_gbk, bytes, knownInGbk);
    if (knownInShiftJis == 0 && knownInGbk == 0)
        return {};
    return knownInShiftJis >= knownInGbk ? shiftJis : gbk;
}

const Vocabulary& builtInVocabulary()
{
    static const Vocabulary s_vocabulary(kBuiltInWords);
    return s_vocabulary;
}

}  // namespace KivReader
