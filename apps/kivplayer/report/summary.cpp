#include "apps/kivplayer/report/summary.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <locale>
#include <sstream>
#include <string_view>

namespace KivPlayer {

namespace {

constexpr std::array<std::string_view, 21> kBody = {
    "Hips",    "LeftUpLeg",   "LeftLeg",  "LeftFoot",      "RightUpLeg", "RightLeg",     "RightFoot",
    "Spine",   "Spine1",      "Spine2",   "Spine3",        "Neck",       "Head",         "LeftShoulder",
    "LeftArm", "LeftForeArm", "LeftHand", "RightShoulder", "RightArm",   "RightForeArm", "RightHand"};
constexpr std::size_t kMaxNamed = 6;

std::size_t bodyJoints(const std::vector<std::string>& matched)
{
    return static_cast<std::size_t>(
        std::count_if(matched.begin(), matched.end(), [](const std::string& joint) {
            return std::find(kBody.begin(), kBody.end(), joint) != kBody.end();
        }));
}

std::string rounded(const std::optional<double>& number)
{
    if (!number)
        return "none";
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(3);
    text << *number;
    return text.str();
}

std::string counted(const char* what, std::size_t count)
{
    return std::string(what) + " " + std::to_string(count);
}

/// "word" or "word (reason)".
std::string withReason(const std::string& word, const std::string& reason)
{
    return reason.empty() ? word : word + " (" + reason + ")";
}

/// "Tail (nearest: Spine), Wing, … and 3 more"
std::string unmatchedText(const std::vector<KivReader::ProfileRecord::Unmatched>& unmatched)
{
    std::string text;
    for (std::size_t i = 0; i < std::min(unmatched.size(), kMaxNamed); ++i) {
        const std::vector<std::string>& nearest = unmatched[i].nearest;
        text += (i > 0 ? ", " : "") + unmatched[i].joint;
        if (!nearest.empty())
            text += " (nearest: " + nearest.front() + ")";
    }
    if (unmatched.size() > kMaxNamed)
        text += " and " + std::to_string(unmatched.size() - kMaxNamed) + " more";
    return text;
}

/// "LeftArm (upperarm_l, 0.42), …": what was recognised with less than confidence.
std::string guessText(const KivReader::ProfileRecord& profile)
{
    std::string text;
    std::size_t guesses = 0;
    for (const KivReader::ProfileRecord::Evidence& joint : profile.evidence) {
        if (joint.confidence >= KivReader::ProfileRecord::kGuess || ++guesses > kMaxNamed)
            continue;
        text += (text.empty() ? "" : ", ") + joint.joint + " (" + joint.fileJoint + ", " +
                rounded(joint.confidence) + ")";
    }
    return text + (guesses > kMaxNamed ? " and " + std::to_string(guesses - kMaxNamed) + " more" : "");
}

std::string profileText(const KivReader::ProfileRecord& profile, bool isPerson)
{
    if (!isPerson)
        return "  " + notAPerson(profile) + "\n";
    if (!profile.isHumanoid)
        return "  read as it stands: " + profile.whyNot + "\n";
    std::string text =
        "  " + counted("renamed", profile.renamed.size()) + ", " + counted("folded", profile.folded.size()) +
        ", " + counted("inserted", profile.inserted.size()) + ", " +
        counted("reframed", profile.reframed.size()) + ", " + counted("left", profile.left.size());
    text += "\n  unit " + withReason(profile.unit, profile.unitReason);
    text += "\n  upright " + withReason(profile.upAxis, profile.upReason);
    if (const std::string guesses = guessText(profile); !guesses.empty())
        text += "\n  guessed " + guesses;
    if (!profile.restPose.choice.empty())
        text += "\n  rest pose " + withReason(profile.restPose.choice, profile.restPose.reason);
    for (const KivReader::ProfileRecord::Check& check : profile.checks)
        if (!check.passed)
            text += "\n  check failed: " + check.sentence;
    if (!profile.hipWidthReason.empty())
        text += "\n  torso sized as for hips " + rounded(profile.hipWidthMeasured) + " cm wide, not " +
                rounded(profile.hipWidth) + " cm (" + profile.hipWidthReason + ")";
    return text + "\n";
}

}  // namespace

std::string summaryOf(const ActorFit& fit)
{
    const std::string& dialect = fit.profile.dialect;
    std::string text = "kivplayer: " + fit.name + ": " + fit.file + ", dialect " +
                       (dialect.empty() ? "unknown" : dialect) + "\n";
    text += "  " + counted("matched", bodyJoints(fit.matched)) + " of " + std::to_string(kBody.size()) +
            " body joints, " + std::to_string(fit.matched.size()) + " joints in all; " +
            counted("pieces attached", fit.attached) + ", " + counted("skipped", fit.skipped.size()) + "\n";
    text += profileText(fit.profile, fit.isPerson);
    if (!fit.unmatched.empty())
        text += "  unmatched " + unmatchedText(fit.unmatched) + "\n";
    text += "  hip ratio " + rounded(fit.hipRatio) + ", hand ratio " + rounded(fit.handRatio) + ", " +
            counted("frames", fit.frames);
    if (!fit.warnings.empty())
        text += ", " + counted("warnings", fit.warnings.size());
    return text + "\n";
}

}  // namespace KivPlayer
