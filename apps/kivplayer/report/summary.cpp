#include "apps/kivplayer/report/summary.h"

#include <array>
#include <cstddef>
#include <locale>
#include <sstream>
#include <string_view>

namespace KivPlayer {

using nlohmann::ordered_json;

namespace {

constexpr std::array<std::string_view, 21> kBody = {
    "Hips",    "LeftUpLeg",   "LeftLeg",  "LeftFoot",      "RightUpLeg", "RightLeg",     "RightFoot",
    "Spine",   "Spine1",      "Spine2",   "Spine3",        "Neck",       "Head",         "LeftShoulder",
    "LeftArm", "LeftForeArm", "LeftHand", "RightShoulder", "RightArm",   "RightForeArm", "RightHand"};
constexpr std::size_t kMaxNamed = 6;

std::size_t bodyJoints(const ordered_json& matched)
{
    std::size_t count = 0;
    for (const std::string_view name : kBody)
        for (const ordered_json& joint : matched)
            count += joint.get_ref<const std::string&>() == name ? 1 : 0;
    return count;
}

std::string numberText(const ordered_json& number)
{
    if (!number.is_number())
        return "none";
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(3);
    text << number.get<double>();
    return text.str();
}

/// "word" or "word (reason)".
std::string withReason(const std::string& word, const std::string& reason)
{
    return reason.empty() ? word : word + " (" + reason + ")";
}

/// "Tail (nearest: Spine), Wing, … and 3 more"
std::string unmatchedText(const ordered_json& unmatched)
{
    std::string text;
    for (std::size_t i = 0; i < unmatched.size() && i < kMaxNamed; ++i) {
        const ordered_json& nearest = unmatched[i].at("nearest");
        text += (i > 0 ? ", " : "") + unmatched[i].at("joint").get<std::string>();
        if (!nearest.empty())
            text += " (nearest: " + nearest[0].get<std::string>() + ")";
    }
    if (unmatched.size() > kMaxNamed)
        text += " and " + std::to_string(unmatched.size() - kMaxNamed) + " more";
    return text;
}

std::string profileText(const ordered_json& profile)
{
    if (!profile.at("humanoid").get<bool>())
        return "  read as it stands: " + profile.at("reason").get<std::string>() + "\n";
    std::string text;
    for (const char* what : {"renamed", "folded", "inserted", "reframed", "left"})
        text +=
            (text.empty() ? "  " : ", ") + std::string(what) + " " + std::to_string(profile.at(what).size());
    text += "\n  unit " + withReason(profile.at("unit"), profile.at("unitReason"));
    text += "\n  upright " + withReason(profile.at("upAxis"), profile.at("upReason"));
    const auto& hipReason = profile.at("hipWidthReason").get_ref<const std::string&>();
    if (!hipReason.empty())
        text += "\n  torso sized as for hips " + numberText(profile.at("hipWidthMeasured")) +
                " cm wide, not " + numberText(profile.at("hipWidth")) + " cm (" + hipReason + ")";
    return text + "\n";
}

}  // namespace

std::string summaryOf(const ordered_json& actor)
{
    const ordered_json& dialect = actor.at("dialect");
    const ordered_json& pieces = actor.at("pieces");
    std::string text = "kivplayer: " + actor.at("name").get<std::string>() + ": " +
                       actor.at("file").get<std::string>() + ", dialect " +
                       (dialect.is_string() ? dialect.get<std::string>() : "unknown") + "\n";
    text += "  matched " + std::to_string(bodyJoints(actor.at("matched"))) + " of " +
            std::to_string(kBody.size()) + " body joints, " + std::to_string(actor.at("matched").size()) +
            " joints in all; pieces attached " + pieces.at("attached").dump() + ", skipped " +
            std::to_string(pieces.at("skipped").size()) + "\n";
    text += profileText(actor.at("profile"));
    if (!actor.at("unmatched").empty())
        text += "  unmatched " + unmatchedText(actor.at("unmatched")) + "\n";
    text += "  hip ratio " + numberText(actor.at("hipRatio")) + ", hand ratio " +
            numberText(actor.at("handRatio")) + ", frames " + actor.at("frames").dump();
    if (!actor.at("warnings").empty())
        text += ", warnings " + std::to_string(actor.at("warnings").size());
    return text + "\n";
}

}  // namespace KivPlayer
