#include "host/KivReader/humanoid/recognition/namehints.h"

#include <algorithm>
#include <map>

#include "host/KivReader/humanoid/recognition/nameletters.h"
#include "host/KivReader/humanoid/recognition/namephrases.h"

namespace KivReader {

namespace {

/// Names that are no UTF-8 come as Latin-1 letters: back to the bytes that the file has.
std::string bytesOfLatin1(const std::string& name)
{
    std::string bytes;
    bool hasHigh = false;
    for (const char32_t letter : lettersOf(name)) {
        if (letter > 0xff)
            return {};
        hasHigh = hasHigh || letter >= 0x80;
        bytes += static_cast<char>(letter);
    }
    return hasHigh ? bytes : std::string();
}

std::string readable(const std::string& name, const Vocabulary& vocabulary)
{
    const std::string bytes = bytesOfLatin1(name);
    const std::string decoded = bytes.empty() ? bytes : vocabulary.decoded(bytes);
    return decoded.empty() ? name : decoded;
}

/// A side that no other joint has the other side of is no side: "l" may mean anything.
class Mirrors
{
public:
    void note(const SidedName& name) { m_sides[name.key] |= name.side == Side::Left ? 1u : 2u; }
    bool hasBoth(const SidedName& name) const
    {
        const auto found = m_sides.find(name.key);
        return found != m_sides.end() && found->second == 3u;
    }

private:
    std::map<std::string, unsigned> m_sides;
};

void keepWhatFitsTheSide(NameHint& hint)
{
    const Parts all = hint.parts | hint.perhaps;
    const Parts limbs = kLegParts | kArmParts;
    const Parts wanted = hint.side == Side::None ? kTrunkParts : limbs;
    if ((all & wanted) == 0)
        return;
    hint.parts &= wanted;
    hint.perhaps &= wanted;
}

std::vector<std::string> bareNames(const MotionFigure& figure, const Vocabulary& vocabulary)
{
    std::vector<std::string> names;
    std::vector<std::string> counted;
    for (const MotionFigure::Joint& joint : figure.joints) {
        names.push_back(joint.endSite ? std::string() : readable(joint.name, vocabulary));
        if (!joint.endSite)
            counted.push_back(names.back());
    }
    const SharedLetters shared = sharedLetters(counted);
    std::transform(names.begin(), names.end(), names.begin(),
                   [&](const std::string& name) { return withoutShared(name, shared); });
    return names;
}

/// Some rigs have a helper before a joint, under the same words.
void dropHelpers(std::vector<NameHint>& hints, const std::vector<std::vector<std::string>>& words,
                 const MotionFigure& figure)
{
    for (std::size_t i = 1; i < hints.size(); ++i) {
        const auto parent = static_cast<std::size_t>(figure.joints[i].parent);
        if (words[i].empty() || words[i] != words[parent])
            continue;
        hints[parent].parts = hints[parent].perhaps = 0;
        hints[parent].finger = WordMeaning::kNoFinger;
    }
}

}  // namespace

std::vector<NameHint> readNames(const MotionFigure& figure, const Vocabulary& vocabulary)
{
    const std::vector<std::string> names = bareNames(figure, vocabulary);
    std::vector<std::vector<std::string>> words(names.size());
    std::vector<std::vector<SidedName>> readings(names.size());
    Mirrors mirrors;
    for (std::size_t i = 0; i < names.size(); ++i) {
        words[i] = wordsOf(names[i]);
        readings[i] = sidedReadings(words[i], vocabulary);
        for (const SidedName& reading : readings[i])
            mirrors.note(reading);
    }
    std::vector<NameHint> hints;
    hints.reserve(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto sided = std::find_if(readings[i].begin(), readings[i].end(),
                                        [&](const SidedName& name) { return mirrors.hasBoth(name); });
        const bool hasSide = sided != readings[i].end();
        NameHint hint = understood(hasSide ? sided->words : words[i], vocabulary);
        hint.side = hasSide ? sided->side : Side::None;
        keepWhatFitsTheSide(hint);
        hint.isTip = hint.isTip || figure.joints[i].endSite;
        if (hint.isNever)
            hint.parts = hint.perhaps = 0;
        hints.push_back(std::move(hint));
    }
    dropHelpers(hints, words, figure);
    return hints;
}

}  // namespace KivReader
