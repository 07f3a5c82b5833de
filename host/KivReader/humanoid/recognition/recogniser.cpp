#include "host/KivReader/humanoid/recognition/recogniser.h"

#include <array>
#include <cstdint>

#include "host/KivReader/figure/motionfigure.h"

namespace KivReader {

namespace {

constexpr std::array<const char*, 8> kLimbs = {"LeftUpLeg", "RightUpLeg", "LeftLeg",     "RightLeg",
                                               "LeftArm",   "RightArm",   "LeftForeArm", "RightForeArm"};
/// What hangs from a folded joint repeats the moves of all that is folded above it: more would take far more
/// memory than their text.
constexpr std::size_t kMostBetween = 32;

/// Why this is no humanoid; empty if it is one.
std::string missingLimbs(const JointMatching& matching)
{
    std::string missing;
    for (const char* name : kLimbs) {
        if (!matching.has(name))
            missing += (missing.empty() ? "" : ", ") + std::string(name);
    }
    return missing.empty() ? missing : "there is no " + missing;
}

/// What both joints hang from.
std::size_t commonAncestor(const MotionFigure& figure, std::size_t one, std::size_t other)
{
    while (one != other) {
        std::size_t& later = one > other ? one : other;
        later = static_cast<std::size_t>(figure.joints[later].parent);
    }
    return one;
}

/// What both legs hang from are the hips, whatever their name.
void findHips(JointMatching& matching, const MotionFigure& figure)
{
    if (matching.has("Hips"))
        return;
    const std::size_t hips = commonAncestor(figure, matching.at("LeftUpLeg"), matching.at("RightUpLeg"));
    for (const auto& [name, joint] : matching.joints) {
        if (joint == hips)
            return;
    }
    matching.joints["Hips"] = hips;
    matching.warnings.push_back("no joint is called Hips; " + figure.joints[hips].name +
                                " is what both legs hang from");
}

/// Why the joints between two of the avatar's are too many to be folded; empty where they are not.
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

}  // namespace

Recognition recognise(const MotionDocument& document, const ProfileTable& table)
{
    const MotionFigure raw = makeFigure(document, FileFrame());
    Recognition found;
    found.matching = matchJoints(raw, table);
    found.whyNot = missingLimbs(found.matching);
    if (found.whyNot.empty())
        findHips(found.matching, raw);
    if (found.whyNot.empty() && !found.matching.has("Hips"))
        found.whyNot = "there is no joint for the hips";
    if (found.whyNot.empty())
        found.whyNot = crowding(found.matching, raw);
    found.isHumanoid = found.whyNot.empty();
    for (const RestFigure::Joint& joint : table.figure.joints) {
        if (found.matching.has(joint.name))
            found.evidence.push_back(
                {joint.name, raw.joints[found.matching.at(joint.name)].name, 1.0, {"its name"}});
    }
    found.confidence = found.isHumanoid ? 1.0 : 0.0;
    return found;
}

}  // namespace KivReader
