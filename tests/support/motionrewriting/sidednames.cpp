#include "tests/support/motionrewriting/sidednames.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace KivTestSupport {

namespace {

const std::vector<std::pair<std::string, std::string>> kSides = {
    {"Left", "Right"}, {"left", "right"}, {"LEFT", "RIGHT"},  {"lt", "rt"},
    {"L", "R"},        {"l", "r"},        {"hidari", "migi"}, {"左", "右"}};

bool beginsWith(const std::string& text, std::size_t at, const std::string& word)
{
    return text.compare(at, word.size(), word) == 0;
}

bool areSidesOfOne(const std::string& left, const std::string& right)
{
    const auto differing = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    auto at = static_cast<std::size_t>(differing.first - left.begin());
    // Not from the middle of a character: all bytes but its first one begin with the bits 10.
    while (at > 0 && at < left.size() && (static_cast<unsigned char>(left[at]) & 0xC0U) == 0x80U)
        --at;
    return std::any_of(kSides.begin(), kSides.end(), [&](const auto& side) {
        return beginsWith(left, at, side.first) && beginsWith(right, at, side.second) &&
               left.substr(at + side.first.size()) == right.substr(at + side.second.size());
    });
}

}  // namespace

void exchangeSides(KivReader::MotionDocument& document)
{
    std::vector<std::string> names;
    for (const auto& joint : document.joints)
        names.push_back(joint.name);
    for (std::size_t i = 0; i < names.size(); ++i) {
        for (std::size_t j = 0; j < names.size(); ++j) {
            if (!areSidesOfOne(names[i], names[j]))
                continue;
            document.joints[i].name = names[j];
            document.joints[j].name = names[i];
        }
    }
}

}  // namespace KivTestSupport
