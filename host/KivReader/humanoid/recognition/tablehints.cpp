#include "host/KivReader/humanoid/recognition/tablehints.h"

#include <array>
#include <string_view>
#include <utility>

namespace KivReader {

namespace {

constexpr double kTableWeight = 1.8;

constexpr std::array<std::pair<std::string_view, Part>, 14> kBody = {{{"Hips", Part::Hips},
                                                                      {"Spine", Part::Spine},
                                                                      {"Spine1", Part::Spine},
                                                                      {"Spine2", Part::Spine},
                                                                      {"Spine3", Part::Spine},
                                                                      {"Neck", Part::Neck},
                                                                      {"Head", Part::Head},
                                                                      {"Shoulder", Part::Collar},
                                                                      {"Arm", Part::UpperArm},
                                                                      {"ForeArm", Part::ForeArm},
                                                                      {"Hand", Part::Hand},
                                                                      {"UpLeg", Part::Thigh},
                                                                      {"Leg", Part::Shin},
                                                                      {"Foot", Part::Foot}}};

constexpr std::array<std::string_view, 5> kFingersOfTargets = {"Thumb", "Index", "Middle", "Ring", "Pinky"};

bool takeFront(std::string_view& text, std::string_view front)
{
    if (text.substr(0, front.size()) != front)
        return false;
    text.remove_prefix(front.size());
    return true;
}

/// What a joint of the avatar's name is.
NameHint hintOf(std::string_view target)
{
    NameHint hint;
    hint.weight = kTableWeight;
    hint.word = target;
    if (takeFront(target, "Left"))
        hint.side = Side::Left;
    else if (takeFront(target, "Right"))
        hint.side = Side::Right;
    for (const auto& [name, part] : kBody) {
        if (name == target)
            hint.parts = only(part);
    }
    hint.isPalm = takeFront(target, "InHand");
    if (hint.isPalm || takeFront(target, "Hand")) {
        for (std::size_t i = 0; i < kFingersOfTargets.size(); ++i) {
            if (takeFront(target, kFingersOfTargets[i]))
                hint.finger = static_cast<std::int8_t>(i);
        }
        if (!target.empty() && hint.finger != WordMeaning::kNoFinger)
            hint.numbers.push_back(target.front() - '0');
    }
    return hint;
}

}  // namespace

void applyTable(std::vector<NameHint>& hints, const JointMatching& table)
{
    for (const auto& [target, joint] : table.joints) {
        const bool isTip = hints[joint].isTip;
        hints[joint] = hintOf(target);
        hints[joint].isTip = isTip;
    }
    for (const std::size_t joint : table.excluded) {
        const bool isTip = hints[joint].isTip;
        hints[joint] = NameHint();
        hints[joint].isTip = isTip;
    }
}

}  // namespace KivReader
