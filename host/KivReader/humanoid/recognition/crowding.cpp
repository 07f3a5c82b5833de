#include "host/KivReader/humanoid/recognition/crowding.h"

#include <vector>

namespace KivReader {

namespace {

/// What hangs from a folded joint repeats the moves of all that is folded above it: more would take far more
/// memory than their text.
constexpr std::size_t kMostBetween = 32;

}  // namespace

std::string crowding(const JointMatching& matching, const MotionFigure& figure)
{
    std::vector<std::string> targets(figure.joints.size());
    for (const auto& [name, joint] : matching.joints)
        targets[joint] = name;
    std::vector<std::size_t> between(figure.joints.size());  // others since the last of the avatar's
    std::vector<bool> isBelowOne(figure.joints.size());
    for (std::size_t i = 1; i < figure.joints.size(); ++i) {
        const auto parent = static_cast<std::size_t>(figure.joints[i].parent);
        isBelowOne[i] = isBelowOne[parent] || !targets[parent].empty();
        between[i] = isBelowOne[i] && targets[parent].empty() ? between[parent] + 1 : 0;
        if (!targets[i].empty() && between[i] > kMostBetween)
            return std::to_string(between[i]) + " joints stand between " + targets[i] +
                   " and the next of the avatar's joints above it; more than " +
                   std::to_string(kMostBetween) + " are not folded";
    }
    return {};
}

}  // namespace KivReader
