#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "KivReader/motiondocument.h"
#include "tests/host/KivReader/motiontext.h"

namespace {

using namespace KivReaderTest;
using KivReader::MotionReading;
using KivReader::readMotionDocument;

struct Refused
{
    const char* name;
    std::string MotionText::*part;
    std::string text;
    std::size_t line;
    std::size_t column;
    const char* message;
};

std::ostream& operator<<(std::ostream& stream, const Refused& refused)
{
    return stream << refused.name;
}

class RefusedPart : public testing::TestWithParam<Refused>
{
};

TEST_P(RefusedPart, isRefusedWithPlaceAndReason)
{
    const Refused& refused = GetParam();
    MotionText parts;
    parts.*refused.part = refused.text;
    const MotionReading reading = readMotionDocument(parts.text());
    ASSERT_FALSE(reading.document.has_value());
    EXPECT_THAT(reading.error.message, testing::HasSubstr(refused.message));
    EXPECT_EQ(reading.error.line, refused.line);
    EXPECT_EQ(reading.error.column, refused.column);
}

const std::vector<Refused> kHierarchyParts = {
    {"noRoot", &MotionText::root, "JOINT Hips", kRootLine, 1, "expected ROOT, found 'JOINT'"},
    {"rootWithoutName", &MotionText::root, "ROOT", kRootLine, 1, "a joint without a name"},
    {"wordInABlock", &MotionText::joint, "BONE Spine", kJointLine, 1, "found 'BONE'"},
    {"jointWithoutName", &MotionText::joint, "JOINT", kJointLine, 1, "a joint without a name"},
    {"jointWithoutBrace", &MotionText::joint, "JOINT Spine\nOFFSET 0 0 0", kJointLine + 1, 1, "expected '{'"},
    {"rootInsideTheRoot", &MotionText::joint, "ROOT Prop", kJointLine, 1, "found 'ROOT'"},
    {"offsetOfTwoNumbers", &MotionText::rootOffset, "OFFSET 1 2", kRootOffsetLine, 1,
     "OFFSET needs 3 numbers, found 2"},
    {"offsetOfFourNumbers", &MotionText::rootOffset, "OFFSET 1 2 3 4", kRootOffsetLine, 1,
     "OFFSET needs 3 numbers, found 4"},
    {"offsetInBrackets", &MotionText::rootOffset, "OFFSET [1.0, 2.0, 3.0]", kRootOffsetLine, 8,
     "'[1.0,' (decimal comma?)"},
    {"offsetWithDecimalComma", &MotionText::rootOffset, "OFFSET 0,5 1 2", kRootOffsetLine, 8,
     "'0,5' (decimal comma?)"},
    {"offsetNan", &MotionText::rootOffset, "OFFSET 0 NaN 2", kRootOffsetLine, 10, "'NaN'"},
    {"offsetTooLarge", &MotionText::rootOffset, "OFFSET 0 1e999 2", kRootOffsetLine, 10,
     "'1e999' (too large)"},
    {"offsetTooLargeForAFloatBeforeABrace", &MotionText::endSite, "End Site\n{\nOFFSET 0 0 1e39}",
     kEndSiteLine + 2, 12, "'1e39' (too large)"},
    {"offsetTooLargeForAFloat", &MotionText::rootOffset, "OFFSET 0 0 -1e39", kRootOffsetLine, 12,
     "'-1e39' (too large)"},
    {"offsetInf", &MotionText::rootOffset, "OFFSET -inf 0 0", kRootOffsetLine, 8, "'-inf'"},
    {"offsetHexadecimal", &MotionText::rootOffset, "OFFSET 0 0x1p3 0", kRootOffsetLine, 10, "'0x1p3'"},
    {"offsetsGlued", &MotionText::rootOffset, "OFFSET 0 1.0-2.5", kRootOffsetLine, 10, "'1.0-2.5'"},
    {"secondOffset", &MotionText::rootOffset, "OFFSET 0 0 0 OFFSET 1 1 1", kRootOffsetLine, 14,
     "second OFFSET"},
    {"noOffset", &MotionText::jointOffset, "", 14, 1, "no OFFSET in the block of 'Spine'"},
    {"channelsWithoutCount", &MotionText::rootChannels, "CHANNELS", kRootChannelsLine, 1, "without a count"},
    {"channelCountOfFourBillion", &MotionText::rootChannels, "CHANNELS 4000000000 Xrotation",
     kRootChannelsLine, 10, "'4000000000' is not 0..6"},
    {"channelCountOfSeven", &MotionText::rootChannels, "CHANNELS 7 Xrotation", kRootChannelsLine, 10,
     "'7' is not 0..6"},
    {"negativeChannelCount", &MotionText::rootChannels, "CHANNELS -1", kRootChannelsLine, 10,
     "'-1' is not 0..6"},
    {"channelCountThatIsAName", &MotionText::rootChannels, "CHANNELS Xrotation", kRootChannelsLine, 10,
     "'Xrotation' is not 0..6"},
    {"fewerChannelsThanCounted", &MotionText::rootChannels, "CHANNELS 3 Xrotation Yrotation",
     kRootChannelsLine, 1, "CHANNELS says 3 but lists 2"},
    {"moreChannelsThanCounted", &MotionText::rootChannels, "CHANNELS 1 Xrotation Yrotation",
     kRootChannelsLine, 1, "CHANNELS says 1 but lists 2"},
    {"unknownChannel", &MotionText::rootChannels, "CHANNELS 2 Xrotation Wrotation", kRootChannelsLine, 22,
     "unknown channel 'Wrotation'"},
    {"channelWithALetterTooMany", &MotionText::rootChannels, "CHANNELS 1 Xrotations", kRootChannelsLine, 12,
     "unknown channel 'Xrotations'"},
    {"positionTwice", &MotionText::rootChannels, "CHANNELS 2 Xposition xposition", kRootChannelsLine, 22,
     "'xposition' is listed twice"},
    {"secondChannels", &MotionText::rootChannels, "CHANNELS 0\nCHANNELS 0", kRootChannelsLine + 1, 1,
     "second CHANNELS"},
    {"endWithoutSite", &MotionText::endSite, "End Effector\n{\nOFFSET 0 0 0\n}", kEndSiteLine, 1,
     "expected 'End Site', found 'End Effector'"},
    {"endSiteWithChannels", &MotionText::endSite, "End Site\n{\nOFFSET 0 0 0\nCHANNELS 1 Xrotation\n}",
     kEndSiteLine + 3, 1, "an end site has no channels"},
    {"jointInAnEndSite", &MotionText::endSite, "End Site\n{\nOFFSET 0 0 0\nJOINT A\n{\nOFFSET 0 0 0\n}\n}",
     kEndSiteLine + 3, 1, "an end site holds no further joints"},
    {"closedTooOften", &MotionText::endSite, "}\n}\n}", kEndSiteLine + 2, 1, "expected MOTION, found '}'"},
};

const std::vector<Refused> kMotionParts = {
    {"noFrames", &MotionText::frames, "", kFrameTimeLine, 7, "bad frame count 'Time:'"},
    {"wordForFrames", &MotionText::frames, "Rows: 2", kFramesLine, 1, "expected 'Frames:', found 'Rows:'"},
    {"negativeFrames", &MotionText::frames, "Frames: -4", kFramesLine, 9, "bad frame count '-4'"},
    {"fractionOfFrames", &MotionText::frames, "Frames: 2.5", kFramesLine, 9, "bad frame count '2.5'"},
    {"noFrameTime", &MotionText::frameTime, "", kFrameTimeLine + 1, 1, "expected 'Frame Time:', found '0'"},
    {"negativeFrameTime", &MotionText::frameTime, "Frame Time: -0.03", kFrameTimeLine, 13,
     "negative frame time"},
    {"frameTimeNan", &MotionText::frameTime, "Frame Time: nan", kFrameTimeLine, 13, "'nan'"},
    {"frameTimeWithComma", &MotionText::frameTime, "Frame Time: 0,03", kFrameTimeLine, 13,
     "'0,03' (decimal comma?)"},
    {"nan", &MotionText::rows, "0 90 0 1 nan 3 4 5 6\n", kFirstRowLine, 10, "expected a number, found 'nan'"},
    {"signedNan", &MotionText::rows, "0 90 0 1 -NAN 3 4 5 6\n", kFirstRowLine, 10, "'-NAN'"},
    {"nanWithPayload", &MotionText::rows, "0 90 0 1 nan(7) 3 4 5 6\n", kFirstRowLine, 10, "'nan(7)'"},
    {"inf", &MotionText::rows, "0 90 0 1 2 3 4 5 inf\n", kFirstRowLine, 18, "'inf'"},
    {"infinity", &MotionText::rows, "+Infinity 90 0 1 2 3 4 5 6\n", kFirstRowLine, 1, "'+Infinity'"},
    {"hexadecimal", &MotionText::rows, "0x10 90 0 1 2 3 4 5 6\n", kFirstRowLine, 1, "'0x10'"},
    {"tooLarge", &MotionText::rows, "0 90 0 1 1e999 3 4 5 6\n", kFirstRowLine, 10, "'1e999' (too large)"},
    {"tooLargeWithPlus", &MotionText::rows, "0 90 0 1 +1e999 3 4 5 6\n", kFirstRowLine, 10,
     "'+1e999' (too large)"},
    {"tooLargeForAFloat", &MotionText::rows, "0 90 0 1 1e39 3 4 5 6\n", kFirstRowLine, 10, "'1e39'"},
    {"thousandsWithPoints", &MotionText::rows, "0 90 0 1.000.000 2 3 4 5 6\n", kFirstRowLine, 8,
     "found '1.000.000'"},
    {"glued", &MotionText::rows, "0 90 0.2-7.5 1 2 3 4 5 6\n", kFirstRowLine, 6, "'0.2-7.5'"},
    {"decimalComma", &MotionText::rows, "0,0 90,0 0 1 2 3 4 5 6\n", kFirstRowLine, 1,
     "'0,0' (decimal comma?)"},
    {"twoSigns", &MotionText::rows, "+-1 90 0 1 2 3 4 5 6\n", kFirstRowLine, 1, "'+-1'"},
    {"plusAlone", &MotionText::rows, "+ 90 0 1 2 3 4 5 6\n", kFirstRowLine, 1, "'+'"},
    {"exponentWithoutDigits", &MotionText::rows, "1e 90 0 1 2 3 4 5 6\n", kFirstRowLine, 1, "'1e'"},
    {"suffix", &MotionText::rows, "1.0f 90 0 1 2 3 4 5 6\n", kFirstRowLine, 1, "'1.0f'"},
    {"word", &MotionText::rows, "0 90 0 1 2 3 4 5 6\nfin\n", kFirstRowLine + 1, 1, "'fin'"},
    {"brace", &MotionText::rows, "0 90 0 1 2 3 4 5 6\n}\n", kFirstRowLine + 1, 1, "'}'"},
    {"nulByte", &MotionText::rows, std::string("0 90 0 1 \0 3 4 5 6\n", 19), kFirstRowLine, 10, "NUL byte"},
    {"shortRowInside", &MotionText::rows, "0 90 0 1 2 3 4 5\n0 90 0 1 2 3 4 5 6\n", kFirstRowLine, 1,
     "8 values, expected 9"},
    {"longRowInside", &MotionText::rows, "0 90 0 1 2 3 4 5 6 7\n0 90 0 1 2 3 4 5 6\n", kFirstRowLine, 1,
     "10 values, expected 9"},
    {"longLastRow", &MotionText::rows, "0 90 0 1 2 3 4 5 6\n0 90 0 1 2 3 4 5 6 7\n", kFirstRowLine + 1, 1,
     "10 values, expected 9"},
    {"shortAndLongRowThatAddUp", &MotionText::rows, "0 90 0 1 2 3 4 5\n6 0 90 0 1 2 3 4 5 6\n", kFirstRowLine,
     1, "8 values, expected 9"},
    {"longAndShortRowThatAddUp", &MotionText::rows, "0 90 0 1 2 3 4 5 6 0\n90 0 1 2 3 4 5 6\n", kFirstRowLine,
     1, "10 values, expected 9"},
    {"wrappedRowsThatAreFewerThanDeclared", &MotionText::rows, "0 90 0 1 2\n3 4 5 6\n", kFirstRowLine, 1,
     "5 values, expected 9"},
    {"frameOnOneLineTooMany", &MotionText::rows, "0 90 0 1 2 3 4 5 6 0 90 0 1 2 3 4 5 6 0 90 0 1 2 3 4 5 6\n",
     kFirstRowLine, 1, "27 values, expected 9"},
    {"cutNumberBehindAWholeRow", &MotionText::rows, "0 90 0 1 2 3 4 5 6\n1 91 1 7 8 9 10 11 12 -",
     kFirstRowLine + 1, 1, "10 values, expected 9"},
    {"rowThatEndsInAnotherLine", &MotionText::rows, "0 90 0 1 2 3 4 5 6 1\n91 1 7 8 9", kFirstRowLine, 1,
     "10 values, expected 9"},
    {"wrappedCutRowBehindShortOne", &MotionText::rows, "0 90 0 1 2 3 4 5\n0 90 0 1 2 3 4 5 6\n1 91",
     kFirstRowLine, 1, "8 values, expected 9"},
    {"cutFrameOnOneLineTooMany", &MotionText::rows, "0 90 0 1 2 3 4 5 6 1 91 1 7 8 9 10 11 12 2 92",
     kFirstRowLine, 1, "20 values, expected 9"},
    {"wrappedCutRowTooMany", &MotionText::rows, "0 90 0\n1 2 3\n4 5 6\n1 91 1\n7 8 9\n10 11 12\n2 92",
     kFirstRowLine, 1, "3 values, expected 9"},
};

std::string nameOfRefused(const testing::TestParamInfo<Refused>& info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Hierarchy, RefusedPart, testing::ValuesIn(kHierarchyParts), nameOfRefused);
INSTANTIATE_TEST_SUITE_P(Motion, RefusedPart, testing::ValuesIn(kMotionParts), nameOfRefused);

MotionReading refusedText(const std::string& text)
{
    MotionReading reading = readMotionDocument(text);
    EXPECT_FALSE(reading.document.has_value());
    return reading;
}

TEST(RefusedText, emptyText)
{
    EXPECT_THAT(refusedText("").error.message, testing::HasSubstr("empty"));
}

TEST(RefusedText, nothingButWhiteSpace)
{
    EXPECT_THAT(refusedText(" \r\n\t\n").error.message, testing::HasSubstr("empty"));
}

TEST(RefusedText, somethingElseThanMotion)
{
    EXPECT_EQ(refusedText("\n <html>").error.text(),
              "line 2, column 2: not a BVH text: expected HIERARCHY, found '<html>'");
}

TEST(RefusedText, littleEndianUtf16)
{
    EXPECT_THAT(refusedText(std::string("\xff\xfeH\0I\0", 6)).error.message, testing::HasSubstr("UTF-16"));
}

TEST(RefusedText, bigEndianUtf16)
{
    EXPECT_THAT(refusedText(std::string("\xfe\xff\0H\0I", 6)).error.message, testing::HasSubstr("UTF-16"));
}

TEST(RefusedText, utf16WithoutAMark)
{
    EXPECT_THAT(refusedText(std::string("H\0I\0E\0R\0", 8)).error.message, testing::HasSubstr("NUL byte"));
}

TEST(RefusedText, nulByteInAName)
{
    MotionText parts;
    parts.joint = std::string("JOINT Sp\0ne", 11);
    const MotionReading reading = refusedText(parts.text());
    EXPECT_EQ(reading.error.line, kJointLine);
    EXPECT_EQ(reading.error.column, 9U);
    EXPECT_THAT(reading.error.message, testing::HasSubstr("NUL byte"));
}

TEST(RefusedText, secondRoot)
{
    const MotionReading reading = refusedText(MotionText().hierarchy() + "root Prop {\nOFFSET 0 0 0\n}\n");
    EXPECT_EQ(reading.error.line, 16U);
    EXPECT_THAT(reading.error.message, testing::HasSubstr("second ROOT 'Prop'"));
}

TEST(RefusedText, motionBeforeTheBlocksAreClosed)
{
    std::string text = MotionText().text();
    text.erase(text.find("}\nMOTION"), 2);
    const MotionReading reading = refusedText(text);
    EXPECT_EQ(reading.error.line, kMotionLine - 1);
    EXPECT_THAT(reading.error.message, testing::HasSubstr("MOTION before 1 block(s) were closed"));
}

TEST(RefusedText, everyHierarchyThatIsCutAnywhere)
{
    const std::string whole = MotionText().hierarchy();
    for (std::size_t length = 0; length + 2 < whole.size(); ++length) {
        SCOPED_TRACE(length);
        EXPECT_FALSE(readMotionDocument(whole.substr(0, length)).document.has_value());
    }
}

TEST(RefusedText, anEndInTheMiddleOfTheMotionsHeader)
{
    const std::string hierarchy = MotionText().hierarchy();
    for (const char* head :
         {"MOTION", "MOTION\nFrames:", "MOTION\nFrames: 2", "MOTION\nFrames: 2\nFrame Time:"}) {
        SCOPED_TRACE(head);
        EXPECT_THAT(refusedText(hierarchy + head).error.line, testing::Ge(kMotionLine));
    }
}

TEST(RefusedText, longTokensAreCutAndTheUnprintableEscaped)
{
    MotionText parts;
    parts.rows = "\x01\xff" + std::string(5000, 'x') + "\n";
    const std::string message = refusedText(parts.text()).error.message;
    EXPECT_LT(message.size(), 120U);
    EXPECT_THAT(message, testing::HasSubstr("'\\x01\\xffxxx"));
    EXPECT_THAT(message, testing::HasSubstr("...'"));
}

TEST(RefusedText, whatIsNoTextIsEscapedAndOtherLanguagesAreNot)
{
    MotionText parts;
    parts.rows = "\xe8\x85\xb0\xfc\xc2\x9b\x7f\n";
    EXPECT_THAT(refusedText(parts.text()).error.message,
                testing::HasSubstr("'\xe8\x85\xb0\\xfc\\xc2\\x9b\\x7f'"));
}

TEST(RefusedText, linesAreCountedForAllThreeLineEnds)
{
    for (const char* end : {"\n", "\r\n", "\r"}) {
        std::string text;
        for (const char byte : MotionText().text())
            text += byte == '\n' ? std::string(end) : std::string(1, byte);
        const std::size_t firstRow = text.find("0 90 0 1");
        text.replace(firstRow, 1, "x");
        const MotionReading reading = refusedText(text);
        EXPECT_EQ(reading.error.line, kFirstRowLine);
        EXPECT_EQ(reading.error.column, 1U);
    }
}

}  // namespace
