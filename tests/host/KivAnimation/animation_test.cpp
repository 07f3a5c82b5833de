#include "KivAnimation/animation.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/host/KivAnimation/testactor.h"

namespace {

using namespace KivAnimationTest;
using KivAnimation::Animation;

TEST(AnimationTest, isOneFrameOfNoLengthWithoutMotion)
{
    const osg::ref_ptr<Animation> animation = new Animation;
    EXPECT_EQ(animation->frameCount(), 1u);
    EXPECT_EQ(animation->frameTime(), 0.0);
    EXPECT_EQ(animation->duration(), 0.0);
    EXPECT_FALSE(animation->hasAnimationFrameDataFlag());
    EXPECT_EQ(animation->getAttachNodePtr(), nullptr);
    animation->pose(1.0);
    EXPECT_TRUE(animation->hasAnimationFrameDataFlag());
}

TEST(AnimationTest, refusesAStartThatIsNoTime)
{
    const osg::ref_ptr<Animation> animation = new Animation;
    EXPECT_EQ(animation->startTime(), 0.0);
    EXPECT_TRUE(animation->setStartTime(-2.5));
    for (const double wrong : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_FALSE(animation->setStartTime(wrong));
        EXPECT_EQ(animation->startTime(), -2.5);
    }
}

TEST(AnimationTest, lastsFromItsFirstToItsLastFrame)
{
    TestActor actor;
    actor.setMotion(tableOf(1, 0.25, {1, 2, 3}));
    EXPECT_EQ(actor.animation->frameCount(), 3u);
    EXPECT_EQ(actor.animation->frameTime(), 0.25);
    EXPECT_EQ(actor.animation->duration(), 0.5);
    EXPECT_EQ(actor.animation->motionTable().values.size(), 3u);
}

TEST(AnimationTest, turnsItsNodeOnOnceItHasPosed)
{
    TestActor actor;
    actor.addJoint("Hips", -1, {shift(0, 0)});
    actor.setMotion(tableOf(1, 0.25, {1, 2}));
    EXPECT_FALSE(actor.attached->getValue(0));
    actor.animation->pose(0.0);
    EXPECT_TRUE(actor.attached->getValue(0));
    EXPECT_TRUE(actor.animation->hasAnimationFrameDataFlag());
}

TEST(AnimationTest, turnsItsNodeOffWithTheFlagUntilTheNextPose)
{
    TestActor actor;
    actor.animation->pose(0.0);
    actor.animation->removeAnimationFrameDataFlag();
    EXPECT_FALSE(actor.attached->getValue(0));
    EXPECT_FALSE(actor.animation->hasAnimationFrameDataFlag());
    actor.animation->pose(0.0);
    EXPECT_TRUE(actor.attached->getValue(0));
}

TEST(AnimationTest, turnsANodeOnThatIsAttachedLater)
{
    TestActor actor;
    actor.animation->pose(0.0);
    const osg::ref_ptr<osg::Switch> later = new osg::Switch;
    later->addChild(new osg::Group, false);
    actor.animation->setAttachNodePtr(later);
    EXPECT_EQ(actor.animation->getAttachNodePtr(), later);
    actor.animation->pose(0.0);
    EXPECT_TRUE(later->getValue(0));
}

TEST(AnimationTest, onlyWatchesItsNode)
{
    TestActor actor;
    EXPECT_EQ(actor.attached->referenceCount(), 1);
    actor.attached = nullptr;
    EXPECT_EQ(actor.animation->getAttachNodePtr(), nullptr);
    actor.animation->pose(0.0);
    actor.animation->removeAnimationFrameDataFlag();
    EXPECT_FALSE(actor.animation->hasAnimationFrameDataFlag());
}

TEST(AnimationTest, keepsNoBoneAlive)
{
    TestActor actor;
    buildArm(actor);
    actor.setMotion(scatteredTable(12, 2, 10.0f));
    for (const Bone* bone : actor.bones) {
        EXPECT_EQ(bone->referenceCount(), 1);
    }
}

TEST(AnimationTest, copiesMotionAndIdButNoNode)
{
    TestActor actor;
    buildArm(actor);
    actor.setMotion(scatteredTable(12, 2, 10.0f));
    actor.animation->setId("7");
    actor.animation->setStartTime(2.0);
    const osg::ref_ptr<Animation> copy = osg::clone(actor.animation.get());
    EXPECT_EQ(copy->getId(), "7");
    EXPECT_EQ(copy->startTime(), 2.0);
    EXPECT_EQ(copy->frameCount(), 2u);
    EXPECT_EQ(copy->getAttachNodePtr(), nullptr);
    copy->pose(0.01);
    EXPECT_LE(largestDifference(actor.bones[0]->getMatrix(), actor.expectedLocal(0, 1)), 1e-5);
}

}  // namespace
