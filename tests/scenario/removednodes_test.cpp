#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "KivCommonDef/stickcontact.h"
#include "KivMemoryShare/actorframemanager.h"
#include "KivRenderState/kivrenderstatemanager.h"
#include "tests/scenario/hostfixture.h"
#include "tests/support/figures.h"

namespace {

using namespace KivTestSupport;

constexpr double kIdentity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

/// One actor with everything that hangs on it, of which the host then takes something away by itself.
class RemovedNodes : public ShippedHost
{
protected:
    void SetUp() override
    {
        ShippedHost::SetUp();
        ASSERT_TRUE(load(smallFigureWithPropsBvh(), 1, "One"));
        publish();
        updateScene();
    }

    static void publish()
    {
        const float centre[3] = {0, 100, 0};
        const KivCommonDef::KIV_STICKCONTACT contact = {0.1f, 0.0f, 0.1f, 1, {0, 0, 0}};
        KivMemoryShare::ActorFrameManager::Ins()->WriteActorGravity(1, centre, 3);
        KivMemoryShare::ActorFrameManager::Ins()->WriteActorStickContact(1, &contact, 1);
        KivRenderState::KivRenderStateManager::instance()->setCenterOfMassShow(true);
    }

    static void stopEverything()
    {
        for (KivAnimation::Animation* animation : playback().animations()) {
            playback().unregisterAnimation(animation);
        }
    }

    osg::Group& root() { return *scene().getChild(0)->asGroup(); }

    /// Every command there is, whatever it answers, and a frame after each.
    static void runEveryCommand()
    {
        const std::vector<std::function<bool(KivTaskCommand::TaskCommand*)>> commands = {
            [](auto* command) { return manager().createChangeActorNameCommand(1, "Other", command); },
            [](auto* command) { return manager().ChangeActorStactColorCommand("LeftFoot", {}, command); },
            [](auto* command) { return manager().SetPropsGemoetryMat(command, 1, "LeftProps", kIdentity); },
            [](auto* command) { return manager().ShowPropsDragger(command, 1, "LeftProps", true); },
            [](auto* command) { return manager().ShowContactPointDragger(command, 1, "LeftProps", true); },
            [](auto* command) { return manager().CameraTrace(command, true, "1"); },
            [](auto* command) { return manager().CameraHomePosition(command); },
        };
        for (const auto& create : commands) {
            run(create);
            publish();
            updateScene();
        }
    }

    /// What must work whatever was taken away.
    static void expectAWorkingHost()
    {
        EXPECT_TRUE(load(smallFigureWithPropsBvh(), 1, "Again"));
        updateScene();
        EXPECT_EQ(scene().getNumChildren(), 1u);
        EXPECT_TRUE(remove(0, 0));
        EXPECT_EQ(scene().getNumChildren(), 0u);
        EXPECT_EQ(playback().animationCount(), 0u);
    }
};

TEST_F(RemovedNodes, anActorTakenOutOfTheSceneMayStillBeCommandedAndReplaced)
{
    scene().removeChildren(0, scene().getNumChildren());
    runEveryCommand();
    // Replacing an actor stops its animation only while its root lives: who takes the root away stops both.
    stopEverything();
    expectAWorkingHost();
}

TEST_F(RemovedNodes, anActorTakenOutOfTheSceneMayStillBeRemoved)
{
    scene().removeChildren(0, scene().getNumChildren());
    EXPECT_TRUE(remove(1, 1));
    EXPECT_EQ(playback().animationCount(), 0u);
}

TEST_F(RemovedNodes, everyPartOfAnActorMayGoByItself)
{
    const unsigned int parts = root().getNumChildren();
    ASSERT_GE(parts, 3u);
    for (unsigned int part = 0; part < parts; ++part) {
        SCOPED_TRACE("child " + std::to_string(part) + " of the actor's root");
        root().removeChild(part);
        runEveryCommand();
        expectAWorkingHost();
        ASSERT_TRUE(load(smallFigureWithPropsBvh(), 1, "One"));
    }
}

TEST_F(RemovedNodes, aSkeletonThatLostItsBonesStaysStill)
{
    osg::Group* skeletonSwitch = root().getChild(0)->asGroup();
    ASSERT_TRUE(skeletonSwitch && skeletonSwitch->getNumChildren() > 0);
    osg::Group* skeleton = skeletonSwitch->getChild(0)->asGroup();
    ASSERT_TRUE(skeleton);
    skeleton->removeChildren(0, skeleton->getNumChildren());
    playback().setTime(0.1);
    runEveryCommand();
    expectAWorkingHost();
}

TEST_F(RemovedNodes, anAnimationTakenOutOfPlaybackMayStillBeReplaced)
{
    stopEverything();
    runEveryCommand();
    expectAWorkingHost();
}

}  // namespace
