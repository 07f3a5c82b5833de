#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "KivCommonDef/sharedlibrary.h"

namespace KivReader {

/// A part of the body, by the joint at its upper end.
enum class Part : std::uint8_t
{
    Hips,
    Spine,
    Neck,
    Head,
    Collar,
    UpperArm,
    ForeArm,
    Hand,
    Thigh,
    Shin,
    Foot,
    Toes
};

/// Several parts at once.
using Parts = std::uint16_t;

constexpr Parts only(Part part)
{
    return static_cast<Parts>(1u << static_cast<unsigned>(part));
}

constexpr Parts kTrunkParts = only(Part::Hips) | only(Part::Spine) | only(Part::Neck) | only(Part::Head);
constexpr Parts kLegParts = only(Part::Thigh) | only(Part::Shin) | only(Part::Foot) | only(Part::Toes);
constexpr Parts kArmParts =
    only(Part::Collar) | only(Part::UpperArm) | only(Part::ForeArm) | only(Part::Hand);

enum class Side : std::uint8_t
{
    None,
    Left,
    Right
};

/// What a word says of a joint that is called by it.
struct WordMeaning
{
    static constexpr std::int8_t kNoFinger = -1;
    static constexpr std::int8_t kAnyFinger = 5;

    Parts parts = 0;    ///< it is one of these
    Parts perhaps = 0;  ///< or of these
    Side side = Side::None;
    std::int8_t finger = kNoFinger;  ///< 0 thumb to 4 little finger, or kAnyFinger
    bool isPalm = false;
    bool isNoise = false;
    bool isTip = false;    ///< the end of a chain
    bool isNever = false;  ///< no part of the body
    bool isBeast = false;  ///< only animals have it
};

/// The words that joints are called by, in lower case.
class KIV_READER_API Vocabulary
{
public:
    /// Throws std::runtime_error that names the line.
    explicit Vocabulary(std::string_view text);

    /// Null for a word that says nothing known.
    const WordMeaning* find(const std::string& word) const;

    /// Of a name in another encoding than UTF-8, as its bytes: what of it is known, in UTF-8. Empty where
    /// hardly anything is.
    std::string decoded(std::string_view bytes) const;

    std::size_t longestWord() const { return m_longest; }

private:
    using LetterTable = std::unordered_map<std::uint16_t, std::string>;

    void takeStatement(std::string_view line, std::size_t lineNumber);
    void note(std::string_view keyword, std::string_view kind, const std::string& word);
    static std::string decodedWith(const LetterTable& table, std::string_view bytes, std::size_t& known);

    std::unordered_map<std::string, WordMeaning> m_words;
    LetterTable m_shiftJis, m_gbk;
    std::size_t m_longest = 0;  ///< in bytes
};

KIV_READER_API const Vocabulary& builtInVocabulary();

}  // namespace KivReader
