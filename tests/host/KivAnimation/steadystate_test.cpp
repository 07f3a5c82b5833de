#include <gtest/gtest.h>

#include <osg/FrameStamp>
#include <osgUtil/UpdateVisitor>

#include "KivAnimation/basicanimationmanager.h"
#include "tests/host/KivAnimation/testactor.h"
#include "tests/support/countedallocations.h"

namespace {

using namespace KivAnimationTest;
using KivTestSupport::allocationsOf;

TEST(SteadyState, countsAllocationsOfTheLibraryToo)
{
    osg::ref_ptr<KivAnimation::Animation> animation;
    EXPECT_GE(allocationsOf([&] { animation = new KivAnimation::Animation; }), 2);
}

TEST(SteadyState, allocatesNothingInAnUpdateTraversal)
{
    const osg::ref_ptr<osg::Group> scene = new osg::Group;
    const osg::ref_ptr<KivAnimation::BasicAnimationManager> manager = new KivAnimation::BasicAnimationManager;
    scene->addUpdateCallback(manager);
    TestActor actors[3];
    for (TestActor& actor : actors) {
        buildArm(actor);
        actor.setMotion(scatteredTable(12, 50, 120.0f));
        scene->addChild(actor.attached);
        manager->registerAnimation(actor.animation);
    }
    manager->playAll();
    const osg::ref_ptr<osgUtil::UpdateVisitor> visitor = new osgUtil::UpdateVisitor;
    const osg::ref_ptr<osg::FrameStamp> stamp = new osg::FrameStamp;
    visitor->setFrameStamp(stamp);
    scene->accept(*visitor);

    const auto playFrames = [&] {
        for (int frame = 1; frame <= 100; ++frame) {
            stamp->setSimulationTime(frame * 0.0073);
            scene->accept(*visitor);
        }
    };
    EXPECT_EQ(allocationsOf(playFrames), 0);
    EXPECT_GT(manager->time(), 0.0);
}

}  // namespace
