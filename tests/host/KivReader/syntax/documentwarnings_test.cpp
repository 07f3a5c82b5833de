#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/host/KivReader/acceptedmotion.h"

namespace {

using namespace KivReaderTest;
using KivReader::MotionDocument;
using testing::ElementsAre;

std::string onlyWarning(const MotionDocument& document)
{
    EXPECT_EQ(document.warnings.size(), 1U);
    return document.warnings.empty() ? std::string() : document.warnings.front().text();
}

TEST(MotionWarning, frameTimeOfZeroBecomesAThirtieth)
{
    for (const char* zero : {"0", "0.0", "-0", "1e-400"}) {
        SCOPED_TRACE(zero);
        const MotionDocument document =
            acceptedWith(&MotionText::frameTime, "Frame Time: " + std::string(zero));
        EXPECT_EQ(document.frameTime, 1.0 / 30.0);
        EXPECT_EQ(onlyWarning(document), "line 18, column 13: frame time 0, using 1/30");
    }
}

TEST(MotionWarning, completeRowsCountWhereFewerAreThere)
{
    const MotionDocument document = acceptedWith(&MotionText::frames, "Frames: 9");
    EXPECT_EQ(document.frames, 2U);
    EXPECT_EQ(onlyWarning(document), "line 17, column 1: Frames says 9, file has 2");
}

TEST(MotionWarning, completeRowsCountWhereMoreAreThere)
{
    const MotionDocument document = acceptedWith(&MotionText::frames, "Frames: 1");
    EXPECT_EQ(document.frames, 2U);
    EXPECT_EQ(onlyWarning(document), "line 17, column 1: Frames says 1, file has 2");
}

TEST(MotionWarning, aLastRowThatIsCutIsDropped)
{
    const MotionDocument document = acceptedWith(&MotionText::rows, "0 90 0 1 2 3 4 5 6\n1 91 1 7 8 9 1");
    EXPECT_EQ(document.frames, 1U);
    EXPECT_EQ(document.values.size(), 9U);
    EXPECT_EQ(onlyWarning(document),
              "line 20, column 1: last frame is cut short (7 of 9), dropped; Frames says 2, file has 1");
}

TEST(MotionWarning, aLastRowThatIsCutMayEndInBlankLines)
{
    const MotionDocument document =
        acceptedWith(&MotionText::rows, "0 90 0 1 2 3 4 5 6\n1 91 1 7 8 9 1\n\n \n");
    EXPECT_EQ(document.frames, 1U);
    EXPECT_EQ(onlyWarning(document),
              "line 20, column 1: last frame is cut short (7 of 9), dropped; Frames says 2, file has 1");
}

TEST(MotionWarning, theOnlyRowMayBeCut)
{
    const MotionDocument document = acceptedWith(&MotionText::rows, "0 90 0 1");
    EXPECT_EQ(document.frames, 0U);
    EXPECT_TRUE(document.values.empty());
    EXPECT_EQ(onlyWarning(document),
              "line 19, column 1: last frame is cut short (4 of 9), dropped; Frames says 2, file has 0");
}

TEST(MotionWarning, aLastRowMayBeCutInsideANumber)
{
    for (const char* cut : {"-", "+", ".", "1e", "1.5E-", "2e+"}) {
        SCOPED_TRACE(cut);
        const MotionDocument document =
            acceptedWith(&MotionText::rows, "0 90 0 1 2 3 4 5 6\n1 91 1 7 8 " + std::string(cut));
        EXPECT_EQ(document.frames, 1U);
        EXPECT_THAT(onlyWarning(document), testing::HasSubstr("cut short (5 of 9)"));
    }
}

TEST(MotionWarning, aLastRowMayBeCutInItsLastNumber)
{
    const MotionDocument document =
        acceptedWith(&MotionText::rows, "0 90 0 1 2 3 4 5 6\n1 91 1 7 8 9 10 11 -");
    EXPECT_EQ(document.frames, 1U);
    EXPECT_THAT(onlyWarning(document), testing::HasSubstr("cut short (8 of 9)"));
}

TEST(MotionWarning, aLastRowMayBeCutInItsFirstNumber)
{
    const MotionDocument document = acceptedWith(&MotionText::rows, "0 90 0 1 2 3 4 5 6\n-");
    EXPECT_EQ(document.frames, 1U);
    EXPECT_EQ(onlyWarning(document),
              "line 20, column 1: last frame is cut short (0 of 9), dropped; Frames says 2, file has 1");
}

/// Rows that are no lines are cut as other rows are; where the cut one begins is what the warning names.
TEST(MotionWarning, aLastRowOverSeveralLinesThatIsCutIsDropped)
{
    const std::string whole = "0 90 0\n1 2 3\n4 5 6\n1 91 1\n7 8 9\n10 11 12";
    const std::size_t lastRow = whole.find("1 91");
    for (std::size_t length = lastRow + 1; length < whole.size() - 1; ++length) {
        SCOPED_TRACE(whole.substr(lastRow, length - lastRow));
        const MotionDocument document = acceptedWith(&MotionText::rows, whole.substr(0, length));
        EXPECT_EQ(document.frames, 1U);
        EXPECT_THAT(document.values, ElementsAre(0, 90, 0, 1, 2, 3, 4, 5, 6));
        EXPECT_THAT(onlyWarning(document),
                    testing::HasSubstr("line 22, column 1: last frame is cut short ("));
    }
}

TEST(MotionWarning, aLastRowOnTheLineOfAllFramesThatIsCutIsDropped)
{
    for (const char* cut : {"1", "1 91 1 7 8", "1 91 1 7 8 9 10 11", "-", "1 91 1 7 8 1.5e-"}) {
        SCOPED_TRACE(cut);
        const MotionDocument document =
            acceptedWith(&MotionText::rows, "0 90 0 1 2 3 4 5 6 " + std::string(cut));
        EXPECT_EQ(document.frames, 1U);
        EXPECT_EQ(document.values.size(), 9U);
        EXPECT_THAT(onlyWarning(document),
                    testing::HasSubstr("line 19, column 1: last frame is cut short ("));
    }
}

TEST(MotionWarning, equalNamesAreAcceptedWithTheLineOfTheSecond)
{
    const MotionDocument document = acceptedWith(&MotionText::joint, "JOINT Hips");
    EXPECT_EQ(document.joints[1].name, "Hips");
    EXPECT_EQ(onlyWarning(document),
              "line 6, column 1: duplicate joint names: 'Hips' is declared in line 2 already");
}

TEST(MotionWarning, namesAreQuotedAsTheirReadersWriteThem)
{
    MotionText parts;
    parts.root =
        "ROOT H\xc3\xbc"
        "fte";
    parts.joint =
        "JOINT H\xfc"
        "fte";
    EXPECT_EQ(onlyWarning(accepted(parts.text())),
              "line 6, column 1: duplicate joint names: 'H\xc3\xbc"
              "fte' is declared in line 2 already");
}

}  // namespace
