#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "KivAnimation/updatebone.h"
#include "tests/host/KivReader/motiontext.h"
#include "tests/host/KivReader/readmotion.h"

namespace {

using namespace KivReaderTest;
using KivAnimation::Bone;
using KivAnimation::UpdateBone;

TEST(BuiltSkeleton, reachesTheRootJointAlongFirstChildren)
{
    const Reading reading = read(MotionText().text());
    Bone* root = rootOf(reading);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->getName(), "7#Hips");
    Bone* spine = firstChild<Bone>(root);
    ASSERT_NE(spine, nullptr);
    EXPECT_EQ(spine->getName(), "7#Spine");
    Bone* end = firstChild<Bone>(spine);
    ASSERT_NE(end, nullptr);
    EXPECT_EQ(end->getName(), "7#SpineEnd");
}

TEST(BuiltSkeleton, givesTheRootJointAloneAnUpdateBoneAtRest)
{
    const Reading reading = read(MotionText().text());
    Bone* root = rootOf(reading);
    auto* update = dynamic_cast<UpdateBone*>(root->getUpdateCallback());
    ASSERT_NE(update, nullptr);
    EXPECT_EQ(update->getMatrix(), root->getInitialMatrix());
    EXPECT_EQ(firstChild<Bone>(root)->getUpdateCallback(), nullptr);
}

TEST(BuiltSkeleton, posesEveryBoneAtRest)
{
    MotionText parts;
    parts.jointOffset = "OFFSET 1 2 3";
    const Reading reading = read(parts.text());
    Bone* root = rootOf(reading);
    Bone* spine = firstChild<Bone>(root);
    EXPECT_EQ(root->getInitialMatrix(), osg::Matrixd::translate(0, 0, 90));
    EXPECT_EQ(root->getMatrix(), root->getInitialMatrix());
    EXPECT_EQ(spine->getInitialMatrix(), osg::Matrixd::translate(1, -3, 2));
    EXPECT_EQ(spine->getMatrix(), spine->getInitialMatrix());
    EXPECT_EQ(spine->getMatrixInSkeletonSpace(), spine->getMatrix() * root->getMatrixInSkeletonSpace());
    EXPECT_EQ(spine->getMatrixInSkeletonSpace().getTrans(), osg::Vec3d(1, -3, 92));
}

TEST(BuiltSkeleton, keepsTheTableAsTheFileHasIt)
{
    const Reading reading = read(MotionText().text());
    const KivAnimation::MotionTable& table = reading.animation->motionTable();
    EXPECT_EQ(table.columns, 9U);
    EXPECT_EQ(table.frames, 2U);
    EXPECT_EQ(table.frameTime, 0.025);
    EXPECT_THAT(table.values,
                testing::ElementsAre(0, 90, 0, 1, 2, 3, 4, 5, 6, 1, 91, 1, 7, 8, 9, 10, 11, 12));
    EXPECT_EQ(reading.animation->frameCount(), 2U);
}

TEST(BuiltSkeleton, readsAHierarchyAloneAsASkeletonAtRest)
{
    const Reading reading = read(MotionText().hierarchy());
    ASSERT_TRUE(reading.succeeded);
    EXPECT_EQ(reading.animation->frameCount(), 1U);
    EXPECT_EQ(reading.animation->duration(), 0.0);
    reading.animation->pose(0.0);
    EXPECT_EQ(rootOf(reading)->getMatrix(), rootOf(reading)->getInitialMatrix());
}

TEST(BuiltSkeleton, posesTheRootByTheRow)
{
    MotionText parts;
    parts.rows = "3 91 5 0 90 0 0 0 0\n";
    const Reading reading = read(parts.text());
    reading.animation->pose(0.0);
    const osg::Matrixd matrix = rootOf(reading)->getMatrix();
    EXPECT_LT((matrix.getTrans() - osg::Vec3d(3, -5, 91)).length(), 1e-6);
    // A quarter turn about X takes the file's Y, the scene's Z, to the file's Z, the scene's -Y.
    EXPECT_LT((osg::Matrixd::transform3x3(osg::Vec3d(0, 0, 1), matrix) - osg::Vec3d(0, -1, 0)).length(),
              1e-6);
}

TEST(BuiltSkeleton, turnsEveryJointInTheOrderOfItsOwnChannels)
{
    MotionText parts;
    parts.rootChannels = "CHANNELS 3 Xrotation Yrotation Zrotation";
    parts.jointOffset = "OFFSET 5 0 0";
    parts.jointChannels = "CHANNELS 3 yrotation xrotation zrotation";
    parts.endSite = "End Site\n{\nOFFSET 5 0 0\n}";
    parts.rows = "90 90 0 90 90 0\n";
    const Reading reading = read(parts.text());
    reading.animation->pose(0.0);
    Bone* spine = firstChild<Bone>(rootOf(reading));
    EXPECT_LT((placeOf(spine) - osg::Vec3d(0, 0, 95)).length(), 1e-4);
    EXPECT_LT((placeOf(firstChild<Bone>(spine)) - osg::Vec3d(-5, 0, 95)).length(), 1e-4);
}

TEST(BuiltSkeleton, posesAMotionOfOneFrameAtAnyTime)
{
    MotionText parts;
    parts.frames = "Frames: 1";
    parts.rows = "3 91 5 0 90 0 0 0 0\n";
    const Reading reading = read(parts.text());
    EXPECT_EQ(reading.animation->duration(), 0.0);
    for (const double seconds : {0.0, 0.01, 7.0, -1.0}) {
        reading.animation->pose(seconds);
        EXPECT_LT((placeOf(rootOf(reading)) - osg::Vec3d(3, -5, 91)).length(), 1e-6) << seconds;
    }
}

TEST(BuiltSkeleton, keepsTheFrameTimeAndGivesItsThirtiethForZero)
{
    MotionText parts;
    parts.frameTime = "Frame Time: .0083333";
    EXPECT_EQ(read(parts.text()).animation->frameTime(), .0083333);
    parts.frameTime = "Frame Time: 0";
    EXPECT_EQ(read(parts.text()).animation->duration(), 1.0 / 30.0);
}

TEST(BuiltSkeleton, readsAMotionWithoutRowsAsASkeletonAtRest)
{
    MotionText parts;
    parts.frames = "Frames: 0";
    parts.rows = "";
    const Reading reading = read(parts.text());
    ASSERT_TRUE(reading.succeeded);
    EXPECT_EQ(reading.animation->frameCount(), 1U);
    reading.animation->pose(0.0);
    EXPECT_EQ(rootOf(reading)->getMatrix(), rootOf(reading)->getInitialMatrix());
}

TEST(BuiltSkeleton, buildsJointsOfOneNameEachInItsPlace)
{
    MotionText parts;
    parts.joint = "JOINT Hips";
    const Reading reading = read(parts.text());
    Bone* second = firstChild<Bone>(rootOf(reading));
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->getName(), "7#Hips");
    EXPECT_EQ(placeOf(second), osg::Vec3d(0, 0, 100));
}

TEST(BuiltSkeleton, buildsAsDeepASkeletonAsATextMayHave)
{
    constexpr int kDepth = 512;
    std::string text = "HIERARCHY\nROOT a\n{\nOFFSET 0 1 0\n";
    for (int i = 1; i < kDepth; ++i)
        text += "JOINT a\n{\nOFFSET 0 1 0\n";
    for (int i = 0; i < kDepth; ++i)
        text += "}\n";
    const Reading reading = read(text);
    ASSERT_TRUE(reading.succeeded);
    Bone* last = rootOf(reading);
    for (Bone* next = last; next != nullptr; next = firstChild<Bone>(last))
        last = next;
    EXPECT_EQ(placeOf(last), osg::Vec3d(0, 0, kDepth));
}

}  // namespace
