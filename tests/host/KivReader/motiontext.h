#pragma once

#include <string>

namespace KivReaderTest {

/// A small whole motion file, put together from parts that a test may replace.
struct MotionText
{
    std::string root = "ROOT Hips";
    std::string rootOffset = "OFFSET 0 90 0";
    std::string rootChannels = "CHANNELS 6 Xposition Yposition Zposition Zrotation Xrotation Yrotation";
    std::string joint = "JOINT Spine";
    std::string jointOffset = "OFFSET 0 10 0";
    std::string jointChannels = "CHANNELS 3 Zrotation Xrotation Yrotation";
    std::string endSite = "End Site\n{\nOFFSET 0 5 0\n}";
    std::string frames = "Frames: 2";
    std::string frameTime = "Frame Time: 0.025";
    std::string rows = "0 90 0 1 2 3 4 5 6\n1 91 1 7 8 9 10 11 12\n";

    std::string hierarchy() const
    {
        return "HIERARCHY\n" + root + "\n{\n" + rootOffset + "\n" + rootChannels + "\n" + joint + "\n{\n" +
               jointOffset + "\n" + jointChannels + "\n" + endSite + "\n}\n}\n";
    }

    std::string text() const { return hierarchy() + "MOTION\n" + frames + "\n" + frameTime + "\n" + rows; }
};

/// Lines of the text above, as it stands.
constexpr std::size_t kRootLine = 2;
constexpr std::size_t kRootOffsetLine = 4;
constexpr std::size_t kRootChannelsLine = 5;
constexpr std::size_t kJointLine = 6;
constexpr std::size_t kEndSiteLine = 10;
constexpr std::size_t kMotionLine = 16;
constexpr std::size_t kFramesLine = 17;
constexpr std::size_t kFrameTimeLine = 18;
constexpr std::size_t kFirstRowLine = 19;

}  // namespace KivReaderTest
