#include <gtest/gtest.h>

#include <string>

#include "KivReader/motiondocument.h"
#include "tests/host/KivReader/motiontext.h"

namespace {

using KivReader::MotionDocument;
using KivReader::MotionReading;
using KivReader::readMotionDocument;
using KivReaderTest::MotionText;

/// Both joints with three positions and one rotation.
MotionDocument withPositions(const std::string& rootOffset, const std::string& jointOffset,
                             const std::string& rows)
{
    MotionText parts;
    parts.rootOffset = "OFFSET " + rootOffset;
    parts.jointOffset = "OFFSET " + jointOffset;
    parts.rootChannels = parts.jointChannels = "CHANNELS 4 Xposition Yposition Zposition Xrotation";
    parts.rows = rows;
    MotionReading reading = readMotionDocument(parts.text());
    EXPECT_TRUE(reading.document) << reading.error.text();
    return reading.document ? std::move(*reading.document) : MotionDocument();
}

TEST(PositionConvention, positionsLikeTheOffsetReplaceIt)
{
    const MotionDocument document =
        withPositions("0 90 0", "0 10 1", "0 90 0 7  0 10 1 7\n3 91 9 7  0 10 1 7\n");
    EXPECT_FALSE(document.joints[0].positionsAreDeltas);
    EXPECT_FALSE(document.joints[1].positionsAreDeltas);
}

TEST(PositionConvention, positionsFarFromBothReplaceTheOffset)
{
    const MotionDocument document =
        withPositions("0 90 0", "0 10 1", "0 40 0 7  5 25 5 7\n0 40 0 7  5 25 5 7\n");
    EXPECT_FALSE(document.joints[0].positionsAreDeltas);
    EXPECT_FALSE(document.joints[1].positionsAreDeltas);
}

TEST(PositionConvention, firstRowsOfAboutZeroAreDeltas)
{
    const MotionDocument document =
        withPositions("0 90 0", "0 10 1", "0 0 0 7  1e-5 -1e-4 0 7\n1 0.2 2 7  0 1e-4 0 7\n");
    EXPECT_TRUE(document.joints[0].positionsAreDeltas);
    EXPECT_TRUE(document.joints[1].positionsAreDeltas);
}

TEST(PositionConvention, aRootThatTravelsElsewhereIsStillADelta)
{
    const MotionDocument document =
        withPositions("0 90 0", "0 10 1", "300 0 50 7 0 0 0 7\n310 1 52 7 0 0 0 7\n");
    EXPECT_TRUE(document.joints[0].positionsAreDeltas);
}

TEST(PositionConvention, aRootThatBeginsAtItsOffsetReplacesItAmongDeltas)
{
    const MotionDocument document = withPositions("0 90 0", "0 10 1", "0 90 0 7 0 0 0 7\n0 91 0 7 0 0 0 7\n");
    EXPECT_FALSE(document.joints[0].positionsAreDeltas);
    EXPECT_TRUE(document.joints[1].positionsAreDeltas);
}

TEST(PositionConvention, aRootNearTheOriginReplacesAsTheJointsBelowDo)
{
    const MotionDocument document =
        withPositions("0 90 0", "0 10 1", "6 0 -1 7 0 10 1 7\n6 0 -1 7 0 10 1 7\n");
    EXPECT_FALSE(document.joints[0].positionsAreDeltas);
}

TEST(PositionConvention, aPoseAtTheOriginInFrontOfTheMotionDecidesNothing)
{
    MotionText parts;
    parts.rows = "0 0 0 0 0 0 0 0 0\n0 90 0 0 0 0 0 0 0\n";
    const MotionReading reading = readMotionDocument(parts.text());
    ASSERT_TRUE(reading.document) << reading.error.text();
    EXPECT_FALSE(reading.document->joints[0].positionsAreDeltas);
}

TEST(PositionConvention, anOffsetOfZeroSaysNothing)
{
    const MotionDocument document = withPositions("0 0 0", "0 0 0", "0 0 0 7  0 0 0 7\n0 0 0 7  0 0 0 7\n");
    EXPECT_FALSE(document.joints[0].positionsAreDeltas);
    EXPECT_FALSE(document.joints[1].positionsAreDeltas);
}

}  // namespace
