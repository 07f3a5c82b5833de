#include <gtest/gtest.h>

#include <string>

#include "host/KivReader/figure/motionfigure.h"
#include "tests/host/KivReader/motiontext.h"

namespace {

using KivAnimation::PoseStep;
using KivReader::FileFrame;
using KivReader::makeFigure;
using KivReader::MotionDocument;
using KivReader::MotionFigure;
using KivReader::PoseSteps;
using KivReader::UpAxis;
using KivReaderTest::MotionText;

MotionFigure figureOf(const MotionText& parts, const FileFrame& frame = {})
{
    const KivReader::MotionReading reading = KivReader::readMotionDocument(parts.text());
    EXPECT_TRUE(reading.document) << reading.error.text();
    return makeFigure(*reading.document, frame);
}

void expectMove(const PoseStep& step, PoseStep::Kind kind, int axis, unsigned column, float factor)
{
    EXPECT_EQ(step.kind, kind);
    EXPECT_EQ(step.axis, axis);
    EXPECT_EQ(step.column, column);
    EXPECT_EQ(step.factor, factor);
}

TEST(MotionFigure, offsetsStandUprightInTheScene)
{
    MotionText parts;
    parts.jointOffset = "OFFSET 1 2 3";
    EXPECT_EQ(figureOf(parts).joints[1].offset, osg::Vec3d(1, -3, 2));
}

TEST(MotionFigure, offsetsOfAFileThatIsZUpStayAsTheyAre)
{
    MotionText parts;
    parts.jointOffset = "OFFSET 1 2 3";
    EXPECT_EQ(figureOf(parts, {1.0, UpAxis::Z}).joints[1].offset, osg::Vec3d(1, 2, 3));
}

TEST(MotionFigure, lengthsAreScaledByTheFilesUnit)
{
    MotionText parts;
    parts.jointOffset = "OFFSET 1 2 3";
    const MotionFigure figure = figureOf(parts, {100.0, UpAxis::Y});
    EXPECT_EQ(figure.joints[1].offset, osg::Vec3d(100, -300, 200));
    expectMove(figure.stepsOf(figure.joints[0])[2], PoseStep::Kind::Shift, 1, 2, -100.0f);
}

TEST(MotionFigure, positionsThatReplaceLeaveNothingOfTheOffset)
{
    const MotionFigure figure = figureOf(MotionText());
    const PoseSteps steps = figure.stepsOf(figure.joints[0]);
    ASSERT_EQ(steps.size(), 6U);
    expectMove(steps[0], PoseStep::Kind::Shift, 0, 0, 1.0f);
    expectMove(steps[1], PoseStep::Kind::Shift, 2, 1, 1.0f);
    expectMove(steps[2], PoseStep::Kind::Shift, 1, 2, -1.0f);
    expectMove(steps[3], PoseStep::Kind::Turn, 1, 3, -1.0f);
    expectMove(steps[4], PoseStep::Kind::Turn, 0, 4, 1.0f);
    expectMove(steps[5], PoseStep::Kind::Turn, 2, 5, 1.0f);
    EXPECT_EQ(figure.joints[0].offset, osg::Vec3d(0, 0, 90));
}

TEST(MotionFigure, positionsThatAreMissingKeepTheOffset)
{
    MotionText parts;
    parts.jointOffset = "OFFSET 1 2 3";
    parts.jointChannels = "CHANNELS 2 Yposition Zrotation";
    parts.rows = "0 90 0 1 2 3 2 5\n";
    const MotionFigure figure = figureOf(parts);
    const PoseSteps steps = figure.stepsOf(figure.joints[1]);
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_EQ(steps[0].kind, PoseStep::Kind::Translate);
    EXPECT_EQ(steps[0].vector, osg::Vec3f(1, -3, 0));
    expectMove(steps[1], PoseStep::Kind::Shift, 2, 6, 1.0f);
    expectMove(steps[2], PoseStep::Kind::Turn, 1, 7, -1.0f);
}

TEST(MotionFigure, positionsThatAreDeltasComeOnTopOfTheOffset)
{
    MotionText parts;
    parts.jointOffset = "OFFSET 1 2 3";
    parts.jointChannels = "CHANNELS 3 Xposition Yposition Zposition";
    parts.rows = "0 0 0 1 2 3 0 0 0\n";
    const MotionFigure figure = figureOf(parts);
    const PoseSteps steps = figure.stepsOf(figure.joints[1]);
    ASSERT_EQ(steps.size(), 4U);
    EXPECT_EQ(steps[0].kind, PoseStep::Kind::Translate);
    EXPECT_EQ(steps[0].vector, osg::Vec3f(1, -3, 2));
}

TEST(MotionFigure, aJointIsMovedBeforeItIsTurnedWhateverTheFileListsFirst)
{
    MotionText parts;
    parts.rootChannels = "CHANNELS 4 Yrotation Zposition Xposition Xrotation";
    parts.rows = "0 1 2 3 4 5 6\n";
    const MotionFigure figure = figureOf(parts);
    const PoseSteps steps = figure.stepsOf(figure.joints[0]);
    ASSERT_EQ(steps.size(), 5U);
    EXPECT_EQ(steps[0].vector, osg::Vec3f(0, 0, 90));
    expectMove(steps[1], PoseStep::Kind::Shift, 1, 1, -1.0f);
    expectMove(steps[2], PoseStep::Kind::Shift, 0, 2, 1.0f);
    expectMove(steps[3], PoseStep::Kind::Turn, 2, 0, 1.0f);
    expectMove(steps[4], PoseStep::Kind::Turn, 0, 3, 1.0f);
}

TEST(MotionFigure, anEndSiteOnlyStands)
{
    const MotionFigure figure = figureOf(MotionText());
    const MotionFigure::Joint& end = figure.joints[2];
    EXPECT_TRUE(end.endSite);
    EXPECT_EQ(end.parent, 1);
    ASSERT_EQ(end.stepCount, 1U);
    EXPECT_EQ(figure.stepsOf(end)[0].vector, osg::Vec3f(0, 0, 5));
}

}  // namespace
