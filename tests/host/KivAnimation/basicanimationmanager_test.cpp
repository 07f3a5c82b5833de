#include "KivAnimation/basicanimationmanager.h"

#include <gmock/gmock.h>

#include <osg/FrameStamp>
#include <osg/NodeVisitor>
#include <osgUtil/UpdateVisitor>

#include <cmath>

#include "tests/host/KivAnimation/testactor.h"

namespace {

using namespace KivAnimationTest;
using KivAnimation::Animation;
using KivAnimation::BasicAnimationManager;
using testing::ElementsAre;

/// An actor that walks along x, one unit a second.
struct Walker : TestActor
{
    explicit Walker(double seconds)
    {
        addJoint("Hips", -1, {shift(0, 0)});
        std::vector<float> places;
        for (int i = 0; i <= std::lround(seconds * 10); ++i) {
            places.push_back(0.1f * static_cast<float>(i));
        }
        setMotion(tableOf(1, 0.1, places));
    }

    double place() const { return bones[0]->getMatrix().getTrans().x(); }
};

class Manager : public testing::Test
{
protected:
    void playBoth()
    {
        m_manager->registerAnimation(m_short.animation);
        m_manager->registerAnimation(m_long.animation);
        m_manager->playAll();
        m_manager->update(100.0);
    }

    osg::ref_ptr<BasicAnimationManager> m_manager = new BasicAnimationManager;
    Walker m_short{2.0};
    Walker m_long{4.0};
};

TEST_F(Manager, takesNeitherNullNorAnAnimationTwice)
{
    m_manager->registerAnimation(nullptr);
    m_manager->registerAnimation(m_short.animation);
    m_manager->registerAnimation(m_short.animation);
    EXPECT_EQ(m_manager->animationCount(), 1u);
    EXPECT_THAT(m_manager->animations(), ElementsAre(m_short.animation.get()));
    EXPECT_FALSE(m_manager->isRegistered(nullptr));
}

TEST_F(Manager, ignoresWhatIsNotRegistered)
{
    m_manager->unregisterAnimation(m_short.animation);
    m_manager->unregisterAnimation(nullptr);
    m_manager->stopAnimation(m_short.animation);
    m_manager->stopAnimation(nullptr);
    EXPECT_FALSE(m_manager->isPlaying(m_short.animation));
    EXPECT_EQ(m_manager->animationCount(), 0u);
}

TEST_F(Manager, holdsTheTimeWithinTheMotion)
{
    m_manager->setTime(5.0);
    EXPECT_EQ(m_manager->time(), 0.0);
    playBoth();
    m_manager->setTime(5.0);
    EXPECT_EQ(m_manager->time(), 4.0);
    m_manager->setTime(-1.0);
    EXPECT_EQ(m_manager->time(), 0.0);
    m_manager->setTime(std::nan(""));
    EXPECT_EQ(m_manager->time(), 0.0);
    m_manager->setSpeed(std::nan(""));
    EXPECT_EQ(m_manager->speed(), 1.0);
}

TEST_F(Manager, keepsAnAnimationAliveUntilItIsUnregistered)
{
    m_manager->registerAnimation(m_short.animation);
    EXPECT_EQ(m_short.animation->referenceCount(), 2);
    m_manager->unregisterAnimation(m_short.animation);
    EXPECT_EQ(m_short.animation->referenceCount(), 1);
    EXPECT_FALSE(m_manager->isRegistered(m_short.animation));
}

TEST_F(Manager, posesAnAnimationOnlyAfterPlayAll)
{
    playBoth();
    Walker late(4.0);
    m_manager->registerAnimation(late.animation);
    m_manager->update(101.0);
    EXPECT_FALSE(late.animation->hasAnimationFrameDataFlag());
    EXPECT_FALSE(m_manager->isPlaying(late.animation));
    m_manager->playAll();
    m_manager->update(101.5);
    EXPECT_TRUE(m_manager->isPlaying(late.animation));
    EXPECT_NEAR(late.place(), 1.5, 1e-5);
}

TEST_F(Manager, startsWithTheFirstFrameWhateverTheSimulationTime)
{
    playBoth();
    EXPECT_EQ(m_manager->time(), 0.0);
    EXPECT_TRUE(m_long.animation->hasAnimationFrameDataFlag());
    EXPECT_EQ(m_long.place(), 0.0);
}

TEST_F(Manager, followsTheSimulationTimeAtItsSpeed)
{
    playBoth();
    m_manager->update(100.5);
    EXPECT_NEAR(m_long.place(), 0.5, 1e-5);
    m_manager->setSpeed(2.0);
    m_manager->update(101.0);
    EXPECT_NEAR(m_long.place(), 1.5, 1e-5);
    m_manager->setSpeed(-1.0);
    m_manager->update(101.25);
    EXPECT_NEAR(m_long.place(), 1.25, 1e-5);
}

TEST_F(Manager, advancesOnceForOneSimulationTimeAndNeverBackForAnEarlierOne)
{
    playBoth();
    m_manager->update(101.0);
    m_manager->update(101.0);
    EXPECT_NEAR(m_manager->time(), 1.0, 1e-12);
    m_manager->update(50.0);
    EXPECT_NEAR(m_manager->time(), 1.0, 1e-12);
    m_manager->update(50.5);
    EXPECT_NEAR(m_manager->time(), 1.5, 1e-12);
}

TEST_F(Manager, holdsAShorterMotionAtItsEnd)
{
    playBoth();
    m_manager->update(103.0);
    EXPECT_NEAR(m_short.place(), 2.0, 1e-5);
    EXPECT_NEAR(m_long.place(), 3.0, 1e-5);
    EXPECT_EQ(m_manager->duration(), 4.0);
}

TEST_F(Manager, showsTheLastFrameThenWrapsToTheStart)
{
    playBoth();
    m_manager->update(104.0);
    EXPECT_NEAR(m_long.place(), 4.0, 1e-5);
    m_manager->update(104.5);
    EXPECT_NEAR(m_long.place(), 0.5, 1e-5);
    m_manager->update(113.0);
    EXPECT_NEAR(m_manager->time(), 1.0, 1e-9);
}

TEST_F(Manager, wrapsToTheEndWhenItPlaysBackwards)
{
    playBoth();
    m_manager->setSpeed(-1.0);
    m_manager->update(100.5);
    EXPECT_NEAR(m_manager->time(), 3.5, 1e-9);
}

TEST_F(Manager, staysAtTheEndWithoutLooping)
{
    playBoth();
    m_manager->setLooping(false);
    EXPECT_FALSE(m_manager->isLooping());
    m_manager->update(110.0);
    EXPECT_EQ(m_manager->time(), 4.0);
    m_manager->setSpeed(-1.0);
    m_manager->update(120.0);
    EXPECT_EQ(m_manager->time(), 0.0);
}

TEST_F(Manager, standsStillWhilePausedAndGoesOnWithoutAJump)
{
    playBoth();
    m_manager->update(101.0);
    m_manager->pause();
    EXPECT_TRUE(m_manager->isPaused());
    m_manager->update(103.0);
    EXPECT_NEAR(m_manager->time(), 1.0, 1e-12);
    m_manager->play();
    m_manager->update(103.5);
    EXPECT_NEAR(m_manager->time(), 1.5, 1e-12);
}

TEST_F(Manager, posesAtATimeThatIsSetWhilePaused)
{
    playBoth();
    m_manager->pause();
    m_manager->setTime(2.5);
    EXPECT_NEAR(m_long.place(), 0.0, 1e-5);
    m_manager->update(100.0);
    EXPECT_NEAR(m_long.place(), 2.5, 1e-5);
}

TEST_F(Manager, showsAnActorThatIsLoadedWhilePaused)
{
    playBoth();
    m_manager->update(101.5);
    m_manager->pause();
    Walker late(4.0);
    m_manager->registerAnimation(late.animation);
    m_manager->playAll();
    m_manager->update(102.0);
    EXPECT_NEAR(late.place(), 1.5, 1e-5);
    EXPECT_TRUE(late.attached->getValue(0));
}

TEST_F(Manager, leavesAStoppedAnimationInItsPose)
{
    playBoth();
    m_manager->update(101.0);
    m_manager->stopAnimation(m_long.animation);
    EXPECT_FALSE(m_manager->isPlaying(m_long.animation));
    m_manager->update(101.5);
    EXPECT_NEAR(m_long.place(), 1.0, 1e-5);
    EXPECT_NEAR(m_short.place(), 1.5, 1e-5);
}

TEST_F(Manager, startsAnAnimationAtItsOwnStartTime)
{
    m_short.animation->setStartTime(3.0);
    playBoth();
    EXPECT_EQ(m_manager->duration(), 5.0);
    m_manager->update(104.5);
    EXPECT_NEAR(m_short.place(), 1.5, 1e-5);
    EXPECT_NEAR(m_long.place(), 4.0, 1e-5);
}

TEST_F(Manager, holdsAnActorInItsFirstFrameBeforeItStartsAndInItsLastFrameBehindItsEnd)
{
    m_short.animation->setStartTime(1.0);
    playBoth();
    EXPECT_EQ(m_manager->duration(), 4.0);
    m_manager->update(100.7);
    EXPECT_NEAR(m_short.place(), 0.0, 1e-5);
    EXPECT_TRUE(m_short.attached->getValue(0)) << "it waits in sight";
    m_manager->update(101.3);
    EXPECT_NEAR(m_short.place(), 0.3, 1e-5);
    m_manager->update(103.5);
    EXPECT_NEAR(m_short.place(), 2.0, 1e-5);
    EXPECT_NEAR(m_long.place(), 3.5, 1e-5);
}

TEST_F(Manager, beginsInTheMiddleOfAMotionThatStartedEarlier)
{
    m_short.animation->setStartTime(-0.5);
    m_long.animation->setStartTime(-5.0);
    playBoth();
    EXPECT_EQ(m_manager->duration(), 1.5) << "what was over before the clock began does not count";
    EXPECT_NEAR(m_short.place(), 0.5, 1e-5);
    EXPECT_NEAR(m_long.place(), 4.0, 1e-5);
    m_manager->update(101.0);
    EXPECT_NEAR(m_short.place(), 1.5, 1e-5);
    m_long.animation->setStartTime(-4.5);
    m_short.animation->setStartTime(-3.0);
    EXPECT_EQ(m_manager->duration(), 0.0);
}

TEST_F(Manager, loopsAllActorsTogetherSoThatEachWaitsForItsStartAnew)
{
    m_short.animation->setStartTime(3.0);
    playBoth();
    m_manager->update(104.5);
    m_manager->update(105.5);
    EXPECT_NEAR(m_manager->time(), 0.5, 1e-9);
    EXPECT_NEAR(m_long.place(), 0.5, 1e-5);
    EXPECT_NEAR(m_short.place(), 0.0, 1e-5);
}

TEST_F(Manager, followsAStartTimeThatChangesWhileItPlays)
{
    m_short.animation->setStartTime(3.0);
    playBoth();
    m_manager->setTime(5.0);
    m_short.animation->setStartTime(0.0);
    EXPECT_EQ(m_manager->duration(), 4.0);
    m_manager->update(100.0);
    EXPECT_EQ(m_manager->time(), 4.0) << "held at the new end";
    EXPECT_NEAR(m_short.place(), 2.0, 1e-5);
}

TEST_F(Manager, comesBackIntoTheMotionThatIsLeft)
{
    playBoth();
    m_manager->setLooping(false);
    m_manager->update(103.5);
    m_manager->unregisterAnimation(m_long.animation);
    m_manager->update(103.6);
    EXPECT_EQ(m_manager->time(), 2.0);
    m_manager->unregisterAnimation(m_short.animation);
    m_manager->update(103.7);
    EXPECT_EQ(m_manager->time(), 0.0);
}

TEST_F(Manager, goesOnWhenAnActorsNodesAreGone)
{
    playBoth();
    m_long.attached = nullptr;
    m_long.skeleton = nullptr;
    m_manager->update(101.0);
    EXPECT_NEAR(m_short.place(), 1.0, 1e-5);
}

TEST_F(Manager, posesInTheUpdateTraversalAloneAndLetsItGoOn)
{
    const osg::ref_ptr<osg::Group> scene = new osg::Group;
    scene->addUpdateCallback(m_manager);
    scene->addChild(m_long.skeleton);
    m_manager->registerAnimation(m_long.animation);
    m_manager->playAll();

    const osg::ref_ptr<osgUtil::UpdateVisitor> update = new osgUtil::UpdateVisitor;
    const osg::ref_ptr<osg::FrameStamp> stamp = new osg::FrameStamp;
    update->setFrameStamp(stamp);
    const osg::ref_ptr<osg::NodeVisitor> other = new osg::NodeVisitor(osg::NodeVisitor::EVENT_VISITOR);
    other->setFrameStamp(stamp);
    (*m_manager)(scene, other);
    EXPECT_FALSE(m_long.animation->hasAnimationFrameDataFlag());

    scene->accept(*update);
    stamp->setSimulationTime(1.0);
    scene->accept(*update);
    scene->accept(*update);
    EXPECT_NEAR(m_manager->time(), 1.0, 1e-12);
    EXPECT_NEAR(m_long.place(), 1.0, 1e-5);

    // The joint's own callback was reached: it has brought the bone in line with its matrix.
    dynamic_cast<KivAnimation::UpdateBone&>(*m_long.bones[0]->getUpdateCallback())
        .setMatrix(osg::Matrixd::translate(9, 0, 0));
    m_manager->stopAnimation(m_long.animation);
    scene->accept(*update);
    EXPECT_EQ(m_long.place(), 9.0);
}

TEST_F(Manager, posesWithoutAFrameStampAtTheTimeThatItHas)
{
    const osg::ref_ptr<osg::Group> scene = new osg::Group;
    scene->addUpdateCallback(m_manager);
    m_manager->registerAnimation(m_long.animation);
    m_manager->playAll();
    m_manager->setTime(1.5);
    const osg::ref_ptr<osgUtil::UpdateVisitor> update = new osgUtil::UpdateVisitor;
    scene->accept(*update);
    EXPECT_NEAR(m_long.place(), 1.5, 1e-5);
}

}  // namespace
