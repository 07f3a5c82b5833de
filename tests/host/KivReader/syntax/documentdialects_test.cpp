#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/host/KivReader/acceptedmotion.h"

namespace {

using namespace KivReaderTest;
using KivReader::Channel;
using KivReader::MotionDocument;
using KivReader::readMotionDocument;
using testing::ElementsAre;

void expectThePlainMotion(const MotionDocument& document)
{
    ASSERT_EQ(document.joints.size(), 3U);
    EXPECT_EQ(document.joints[0].name, "Hips");
    EXPECT_EQ(document.joints[1].name, "Spine");
    EXPECT_EQ(document.joints[2].name, "SpineEnd");
    EXPECT_EQ(document.columns, 9U);
    EXPECT_EQ(document.frames, 2U);
    EXPECT_EQ(document.frameTime, 0.025);
    EXPECT_THAT(document.values, ElementsAre(0, 90, 0, 1, 2, 3, 4, 5, 6, 1, 91, 1, 7, 8, 9, 10, 11, 12));
    EXPECT_TRUE(document.warnings.empty());
}

struct Accepted
{
    const char* name;
    std::string MotionText::*part;
    std::string text;
};

std::ostream& operator<<(std::ostream& stream, const Accepted& part)
{
    return stream << part.name;
}

class AcceptedPart : public testing::TestWithParam<Accepted>
{
};

TEST_P(AcceptedPart, readsAsThePlainMotion)
{
    expectThePlainMotion(acceptedWith(GetParam().part, GetParam().text));
}

const std::vector<Accepted> kSpellings = {
    {"asItStands", &MotionText::root, "ROOT Hips"},
    {"lowerCaseRoot", &MotionText::root, "root Hips"},
    {"lowerCaseJoint", &MotionText::joint, "joint Spine"},
    {"lowerCaseOffset", &MotionText::rootOffset, "offset 0 90 0"},
    {"tabsAndTrailingBlanks", &MotionText::root, "\tROOT\t Hips \t"},
    {"blankLines", &MotionText::root, "\n\n  ROOT Hips\n\n"},
    {"upperCaseChannels", &MotionText::rootChannels,
     "CHANNELS 6 XPOSITION YPOSITION ZPOSITION ZROTATION XROTATION YROTATION"},
    {"channelsOverLines", &MotionText::rootChannels,
     "channels 6\nxposition yposition\nzposition zrotation\nxrotation yrotation"},
    {"offsetOverLines", &MotionText::rootOffset, "OFFSET\n0\n90\n0"},
    {"braceBehindANumber", &MotionText::endSite, "End Site{OFFSET 0 +5 0}"},
    {"numberedEndSite", &MotionText::endSite, "End Site4\n{\nOFFSET 0 5 0\n}"},
    {"lowerCaseEndSite", &MotionText::endSite, "end site\n{\nOFFSET 0 5 0\n}"},
    {"endSiteInCapitals", &MotionText::endSite, "END\t SITE\n{\nOFFSET 0 5 0\n}"},
    {"namedEndSite", &MotionText::endSite, "End Site of the spine {\nOFFSET 0 5 0 }"},
    {"endSiteWithNoChannels", &MotionText::endSite, "End Site\n{\nOFFSET 0 5 0\nCHANNELS 0\n}"},
    {"framesWithoutSpace", &MotionText::frames, "Frames:2"},
    {"framesWithSpaceBeforeTheColon", &MotionText::frames, "frames : 2"},
    {"framesTime", &MotionText::frameTime, "Frames Time: 0.025"},
    {"frameTimeWithoutSpace", &MotionText::frameTime, "Frame Time:.025"},
    {"frameTimeAsOneWord", &MotionText::frameTime, "FrameTime: 0.025"},
    {"framesTimeAsOneWord", &MotionText::frameTime, "framestime:0.025"},
    {"frameTimeInCapitals", &MotionText::frameTime, "FRAME TIME :\t2.5e-2"},
    {"blankLinesBetweenRows", &MotionText::rows, "\n0 90 0 1 2 3 4 5 6\n\n \t\n1 91 1 7 8 9 10 11 12\n\n\n"},
    {"noNewlineAtTheEnd", &MotionText::rows, "0 90 0 1 2 3 4 5 6\n1 91 1 7 8 9 10 11 12"},
    {"tabsAndTrailingBlanksInRows", &MotionText::rows,
     " \t0\t90 0 1  2 3 4 5 6 \t\n\t1 91 1 7 8 9 10 11 12 \n"},
    {"anyWhiteSpaceInRows", &MotionText::rows, "\f0\v90\f0 1 2\t3 4 5 6\v\n\v\n1 91 1 7 8 9 10 11 12 \f\n"},
    {"allFramesOnOneLine", &MotionText::rows, "0 90 0 1 2 3 4 5 6 1 91 1 7 8 9 10 11 12"},
    {"wrappedRows", &MotionText::rows, "0 90 0\n1 2 3\n4 5 6\n1 91 1\n7 8 9\n10 11 12\n"},
    {"oneWrappedRow", &MotionText::rows, "0 90 0 1 2 3 4 5 6\n1 91 1 7 8\n9 10 11 12\n"},
    {"numberForms", &MotionText::rows, "+0.0 9.0E+01 .0 1. +2 3e0 40e-1 0.5e1 6\n1 91 1 7 8 9 10 11 12\n"},
    {"tinyNumbers", &MotionText::rows, "1e-400 90 -1E-400 1 2 3 4 5 6\n1 91 1 7 8 9 10 11 12\n"},
};

std::string nameOfAccepted(const testing::TestParamInfo<Accepted>& info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Spelling, AcceptedPart, testing::ValuesIn(kSpellings), nameOfAccepted);

TEST(MotionDialect, allThreeLineEndsAndTheirMixture)
{
    const std::string ends[] = {"\n", "\r\n", "\r"};
    for (std::size_t first = 0; first < 4; ++first) {
        std::string text;
        std::size_t line = 0;
        for (const char byte : MotionText().text())
            text += byte == '\n' ? ends[first < 3 ? first : line++ % 3] : std::string(1, byte);
        SCOPED_TRACE(first);
        const MotionDocument document = accepted(text);
        expectThePlainMotion(document);
        EXPECT_EQ(document.joints[1].line, kJointLine);
        EXPECT_EQ(document.joints[2].line, kEndSiteLine);
    }
}

TEST(MotionDialect, byteOrderMarkIsStripped)
{
    expectThePlainMotion(accepted("\xef\xbb\xbf" + MotionText().text()));
}

TEST(MotionDialect, jointsRememberParentOffsetChannelsColumnAndLine)
{
    const MotionDocument document = accepted(MotionText().text());
    const MotionDocument::Joint& root = document.joints[0];
    const MotionDocument::Joint& spine = document.joints[1];
    const MotionDocument::Joint& end = document.joints[2];
    EXPECT_EQ(root.parent, -1);
    EXPECT_EQ(root.line, kRootLine);
    EXPECT_THAT(root.offset, ElementsAre(0.0, 90.0, 0.0));
    EXPECT_THAT(root.channels, ElementsAre(Channel::Xposition, Channel::Yposition, Channel::Zposition,
                                           Channel::Zrotation, Channel::Xrotation, Channel::Yrotation));
    EXPECT_EQ(spine.parent, 0);
    EXPECT_EQ(spine.firstColumn, 6U);
    EXPECT_EQ(spine.line, kJointLine);
    EXPECT_THAT(spine.channels, ElementsAre(Channel::Zrotation, Channel::Xrotation, Channel::Yrotation));
    EXPECT_FALSE(spine.endSite);
    EXPECT_EQ(end.parent, 1);
    EXPECT_TRUE(end.endSite);
    EXPECT_TRUE(end.channels.empty());
    EXPECT_THAT(end.offset, ElementsAre(0.0, 5.0, 0.0));
}

TEST(MotionDialect, namesAreTheRestOfTheLineAsWritten)
{
    for (const char* name : {"Bip01 L Thigh", "mixamorig:Hips", "upper_arm.L", "J-1", "7", "End", "MOTION",
                             "H\xc3\xbc"
                             "fte"}) {
        EXPECT_EQ(acceptedWith(&MotionText::joint, "JOINT  " + std::string(name) + " \t").joints[1].name,
                  name);
    }
}

TEST(MotionDialect, aChannelEndsAtTheBrace)
{
    const MotionDocument document =
        accepted("HIERARCHY ROOT Hips {OFFSET 0 0 0 CHANNELS 2 Xposition zROTATION}");
    EXPECT_THAT(document.joints[0].channels, ElementsAre(Channel::Xposition, Channel::Zrotation));
}

TEST(MotionDialect, aNameEndsAtTheBrace)
{
    std::string text = MotionText().text();
    text.replace(text.find("JOINT Spine\n{"), 13, "JOINT Lower Back{");
    EXPECT_EQ(accepted(text).joints[1].name, "Lower Back");
}

TEST(MotionDialect, namesThatAreNotUtf8AreTakenForLatin1)
{
    EXPECT_EQ(acceptedWith(&MotionText::joint,
                           "JOINT H\xfc"
                           "fte")
                  .joints[1]
                  .name,
              "H\xc3\xbc"
              "fte");
    EXPECT_EQ(acceptedWith(&MotionText::joint, "JOINT \xc0\x80").joints[1].name, "\xc3\x80\xc2\x80");
    EXPECT_EQ(acceptedWith(&MotionText::joint, "JOINT \xed\xa0\x80").joints[1].name,
              "\xc3\xad\xc2\xa0\xc2\x80");
}

TEST(MotionDialect, aJointWithoutEndSiteIsALeaf)
{
    EXPECT_EQ(acceptedWith(&MotionText::endSite, "").joints.size(), 2U);
}

TEST(MotionDialect, noChannelsAreNoColumns)
{
    for (const char* channels : {"", "CHANNELS 0"}) {
        MotionText parts;
        parts.jointChannels = channels;
        parts.rows = "0 90 0 1 2 3\n0 90 0 1 2 3\n";
        const MotionDocument document = accepted(parts.text());
        EXPECT_EQ(document.columns, 6U);
        EXPECT_TRUE(document.joints[1].channels.empty());
        EXPECT_EQ(document.frames, 2U);
    }
}

TEST(MotionDialect, aFileWithoutAnyChannelHoldsNoFrame)
{
    MotionText parts;
    parts.rootChannels = "";
    parts.jointChannels = "CHANNELS 0";
    parts.rows = "\n\n";
    EXPECT_EQ(accepted(parts.text()).frames, 0U);
    parts.rows = "1\n";
    EXPECT_FALSE(readMotionDocument(parts.text()).document.has_value());
}

TEST(MotionDialect, rotationsBeforePositionsKeepTheFilesColumns)
{
    const MotionDocument document = acceptedWith(
        &MotionText::rootChannels, "CHANNELS 6 Yrotation Xrotation Zrotation Zposition Xposition Yposition");
    EXPECT_THAT(document.joints[0].channels,
                ElementsAre(Channel::Yrotation, Channel::Xrotation, Channel::Zrotation, Channel::Zposition,
                            Channel::Xposition, Channel::Yposition));
}

TEST(MotionDialect, columnsGoByTheOrderInWhichChannelsAreListed)
{
    const std::string hierarchy =
        "HIERARCHY\nROOT a\n{\nOFFSET 0 0 0\nJOINT b\n{\nOFFSET 0 1 0\nCHANNELS 1 Xrotation\n}\n"
        "CHANNELS 2 Yrotation Zrotation\n}\n";
    const MotionDocument document = accepted(hierarchy + "MOTION\nFrames: 1\nFrame Time: 1\n1 2 3\n");
    EXPECT_EQ(document.joints[0].firstColumn, 1U);
    EXPECT_EQ(document.joints[1].firstColumn, 0U);
    EXPECT_EQ(document.columns, 3U);
}

TEST(MotionDialect, aHierarchyWithoutMotionIsARest)
{
    const MotionDocument document = accepted(MotionText().hierarchy());
    EXPECT_FALSE(document.hasMotion);
    EXPECT_EQ(document.joints.size(), 3U);
    EXPECT_EQ(document.frames, 0U);
    EXPECT_TRUE(document.values.empty());
    EXPECT_TRUE(document.warnings.empty());
}

TEST(MotionDialect, aMotionMayHaveNoRows)
{
    MotionText parts;
    parts.frames = "Frames: 0";
    parts.rows = "";
    const MotionDocument document = accepted(parts.text());
    EXPECT_TRUE(document.hasMotion);
    EXPECT_EQ(document.frames, 0U);
    EXPECT_TRUE(document.warnings.empty());
}

TEST(MotionDialect, oneFrameOnly)
{
    MotionText parts;
    parts.frames = "Frames: 1";
    parts.rows = "0 90 0 1 2 3 4 5 6\n";
    EXPECT_EQ(accepted(parts.text()).frames, 1U);
}

TEST(MotionDialect, frameTimesAreKeptAsWritten)
{
    EXPECT_EQ(acceptedWith(&MotionText::frameTime, "Frame Time: .0083333").frameTime, .0083333);
    EXPECT_EQ(acceptedWith(&MotionText::frameTime, "Frame Time: 1").frameTime, 1.0);
}

}  // namespace
