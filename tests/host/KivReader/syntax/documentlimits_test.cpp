#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "KivReader/motiondocument.h"
#include "tests/host/KivReader/motiontext.h"

namespace {

using KivReader::MotionReading;
using KivReader::readMotionDocument;
using KivReaderTest::MotionText;

std::string repeated(const std::string& piece, std::size_t times)
{
    std::string text;
    for (std::size_t i = 0; i < times; ++i)
        text += piece;
    return text;
}

/// A chain of joints, the innermost with an end site.
std::string chain(std::size_t depth)
{
    return "HIERARCHY\nROOT a\n{\nOFFSET 0 1 0\n" + repeated("JOINT a {\nOFFSET 0 1 0\n", depth - 1) +
           "End Site\n{\nOFFSET 0 0 0\n}\n" + repeated("}\n", depth);
}

/// A root with leaves, each with an end site.
std::string star(std::size_t joints)
{
    return "HIERARCHY\nROOT a\n{\nOFFSET 0 1 0\n" +
           repeated("JOINT b {\nOFFSET 0 1 0\nEnd Site {\nOFFSET 0 0 0\n}\n}\n", joints - 1) + "}\n";
}

TEST(ReaderLimits, refusesJointsNestedDeeperThan512)
{
    const MotionReading reading = readMotionDocument(chain(513));
    ASSERT_FALSE(reading.document);
    EXPECT_EQ(reading.error.line, 4 + 2 * 511 + 1U);
    EXPECT_THAT(reading.error.message, testing::HasSubstr("nested deeper than 512"));
}

TEST(ReaderLimits, refusesAMillionOpenBlocks)
{
    EXPECT_FALSE(readMotionDocument(chain(1000000)).document);
}

TEST(ReaderLimits, acceptsADepthOf512)
{
    const MotionReading reading = readMotionDocument(chain(512));
    ASSERT_TRUE(reading.document) << reading.error.text();
    EXPECT_EQ(reading.document->joints.size(), 513U);
}

TEST(ReaderLimits, refusesMoreThan4096Joints)
{
    const MotionReading reading = readMotionDocument(star(4097));
    ASSERT_FALSE(reading.document);
    EXPECT_THAT(reading.error.message, testing::HasSubstr("more than 4096 joints"));
}

TEST(ReaderLimits, accepts4096JointsWithTheirEndSites)
{
    const MotionReading reading = readMotionDocument(star(4096));
    ASSERT_TRUE(reading.document) << reading.error.text();
    EXPECT_EQ(reading.document->joints.size(), 4096U + 4095U);
}

TEST(ReaderLimits, refusesMoreThan4096EndSites)
{
    MotionText parts;
    parts.endSite = repeated("End Site {\nOFFSET 0 0 0\n}\n", 4097);
    const MotionReading reading = readMotionDocument(parts.text());
    ASSERT_FALSE(reading.document);
    EXPECT_THAT(reading.error.message, testing::HasSubstr("more than 4096 end sites"));
}

/// Every end site repeats its joint's name: 100 KB of text would ask for as many megabytes.
TEST(ReaderLimits, refusesNamesLongerThan4096Bytes)
{
    MotionText parts;
    parts.joint = "JOINT " + std::string(4097, 'x');
    const MotionReading reading = readMotionDocument(parts.text());
    ASSERT_FALSE(reading.document);
    EXPECT_EQ(reading.error.line, KivReaderTest::kJointLine);
    EXPECT_THAT(reading.error.message, testing::HasSubstr("has more than 4096 bytes"));
    EXPECT_LT(reading.error.message.size(), 120U);
}

TEST(ReaderLimits, acceptsNamesOf4096Bytes)
{
    MotionText parts;
    parts.joint = "JOINT " + std::string(4096, 'x');
    const MotionReading reading = readMotionDocument(parts.text());
    ASSERT_TRUE(reading.document) << reading.error.text();
    EXPECT_EQ(reading.document->joints[1].name.size(), 4096U);
}

TEST(ReaderLimits, takesMemoryOnlyForRowsThatAreThere)
{
    for (const char* frames : {"Frames: 4000000000", "Frames: 18446744073709551615",
                               "Frames: 99999999999999999999999999999999999999"}) {
        MotionText parts;
        parts.frames = frames;
        const MotionReading reading = readMotionDocument(parts.text());
        ASSERT_TRUE(reading.document) << reading.error.text();
        EXPECT_EQ(reading.document->frames, 2U);
        EXPECT_LE(reading.document->values.capacity(), 2 * reading.document->values.size());
        EXPECT_EQ(reading.document->warnings.size(), 1U);
    }
}

TEST(ReaderLimits, readsRowsBeyondADeclaredCountOfZero)
{
    MotionText parts;
    parts.frames = "Frames: 0";
    const MotionReading reading = readMotionDocument(parts.text());
    ASSERT_TRUE(reading.document) << reading.error.text();
    EXPECT_EQ(reading.document->frames, 2U);
}

TEST(ReaderLimits, everyCutOfATextEndsInADocumentOrAReason)
{
    const std::string whole = MotionText().text();
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const MotionReading reading = readMotionDocument(whole.substr(0, length));
        EXPECT_NE(reading.document.has_value(), !reading.error.message.empty()) << length;
    }
}

TEST(ReaderLimits, everyChangedByteEndsInADocumentOrAReason)
{
    const std::string whole = MotionText().text();
    for (std::size_t place = 0; place < whole.size(); ++place) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string changed = whole;
            changed[place] = static_cast<char>(byte);
            const MotionReading reading = readMotionDocument(changed);
            ASSERT_NE(reading.document.has_value(), !reading.error.message.empty()) << place << " " << byte;
        }
    }
}

}  // namespace
