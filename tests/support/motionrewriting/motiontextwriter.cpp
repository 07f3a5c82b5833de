#include "tests/support/motionrewriting/motiontextwriter.h"

#include <array>
#include <charconv>
#include <vector>

namespace KivTestSupport {

namespace {

using KivReader::MotionDocument;

constexpr std::array<const char*, 6> kChannels = {"Xposition", "Yposition", "Zposition",
                                                  "Xrotation", "Yrotation", "Zrotation"};

/// The shortest text that reads back as the same number.
template <typename Real>
void append(std::string& text, Real number)
{
    std::array<char, 64> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    text.append(digits.data(), result.ptr);
}

void beginBlock(std::string& text, const MotionDocument::Joint& joint)
{
    text += joint.endSite ? "End Site" : (joint.parent < 0 ? "ROOT " : "JOINT ") + joint.name;
    text += "\n{\nOFFSET";
    for (const double value : joint.offset)
        append(text += ' ', value);
    text += '\n';
    if (joint.endSite)
        return;
    text += "CHANNELS " + std::to_string(joint.channels.size());
    for (const KivReader::Channel channel : joint.channels)
        text += std::string(" ") + kChannels[static_cast<std::size_t>(channel)];
    text += '\n';
}

void appendHierarchy(std::string& text, const MotionDocument& document)
{
    std::vector<std::int32_t> open;
    for (std::size_t i = 0; i < document.joints.size(); ++i) {
        while (!open.empty() && open.back() != document.joints[i].parent) {
            text += "}\n";
            open.pop_back();
        }
        beginBlock(text, document.joints[i]);
        open.push_back(static_cast<std::int32_t>(i));
    }
    for (std::size_t i = 0; i < open.size(); ++i)
        text += "}\n";
}

}  // namespace

std::string motionTextOf(const MotionDocument& document)
{
    std::string text = "HIERARCHY\n";
    appendHierarchy(text, document);
    if (!document.hasMotion)
        return text;
    text += "MOTION\nFrames: " + std::to_string(document.frames) + "\nFrame Time: ";
    append(text, document.frameTime);
    text += '\n';
    for (std::size_t i = 0; i < document.values.size(); ++i) {
        append(text, document.values[i]);
        text += (i + 1) % document.columns == 0 ? '\n' : ' ';
    }
    return text;
}

}  // namespace KivTestSupport
