#include <gtest/gtest.h>
#include <osg/NodeVisitor>
#include <osgUtil/UpdateVisitor>

#include <functional>
#include <string>
#include <vector>

#include "KivAnimation/basicanimationmanager.h"
#include "KivCharacterization/Characterization/actorscene.h"
#include "KivCharacterization/Characterization/actorupdatecallbacks.h"
#include "KivMemoryShare/actorframemanager.h"
#include "KivTaskCommand/taskcommand.h"
#include "tests/support/figures.h"
#include "tests/support/freshhost.h"
#include "tests/support/manageraccess.h"

namespace {

/// What the host below was asked for.
std::vector<std::string> asked;

using KivCommonDef::KIV_STICKCONTACT;
std::function<bool(float** buffer, unsigned long long& count)> centreOfMass;
std::function<bool(KIV_STICKCONTACT** buffer, unsigned long long& count)> contacts;

}  // namespace

// A program's own functions stand before those of a library: here for the playback and the frame store of a
// host that is not ours.
void KivAnimation::BasicAnimationManager::registerAnimation(Animation*)
{
    asked.push_back("register");
}
void KivAnimation::BasicAnimationManager::unregisterAnimation(Animation*)
{
    asked.push_back("unregister");
}
void KivAnimation::BasicAnimationManager::stopAnimation(Animation*)
{
    asked.push_back("stop");
}
void KivAnimation::BasicAnimationManager::playAll()
{
    asked.push_back("play");
}
void KivAnimation::Animation::removeAnimationFrameDataFlag()
{
    asked.push_back("remove the flag");
}
bool KivMemoryShare::ActorFrameManager::ReadActorGravity(unsigned, float** buffer, int&,
                                                         unsigned long long& count) const
{
    return centreOfMass(buffer, count);
}
bool KivMemoryShare::ActorFrameManager::ReadActorStickContact(unsigned, KIV_STICKCONTACT** buffer, int&,
                                                              unsigned long long& count) const
{
    return contacts(buffer, count);
}

namespace {

using namespace KivCharacterization;
using namespace KivTestSupport;
using KivMemoryShare::SceneCfgShare;
using KivTaskCommand::TaskCommand;

class OtherPlayback : public FreshHost
{
protected:
    void SetUp() override
    {
        FreshHost::SetUp();
        CharacterizationManagerAccess(manager()).avatars["avatar"] = analysed(smallAvatar().get());
        asked.clear();
    }

    static CharacterizationManager& manager() { return *CharacterizationManager::instance(); }

    /// The host above holds none of them.
    static osg::ref_ptr<KivAnimation::Animation> animation()
    {
        return CharacterizationManagerAccess(manager()).actors.at("7").animation;
    }

    static bool load()
    {
        TaskCommand command;
        manager().createLoadBVHCommand(smallFigureBvh(), 7, "Ann", &command);
        return command.run();
    }
};

TEST_F(OtherPlayback, stopsTheActorThatIsReplacedBeforeItForgetsIt)
{
    ASSERT_TRUE(load());
    EXPECT_EQ(asked, (std::vector<std::string>{"register", "play"}));
    const osg::ref_ptr<KivAnimation::Animation> held = animation();
    asked.clear();
    ASSERT_TRUE(load());
    EXPECT_EQ(asked, (std::vector<std::string>{"stop", "unregister", "register", "play"}));
}

TEST_F(OtherPlayback, dropsTheFrameDataOfARemovedActorBeforeItForgetsIt)
{
    ASSERT_TRUE(load());
    asked.clear();
    TaskCommand command;
    manager().ClearOrRemoveActor(&command, 1, 7);
    ASSERT_TRUE(command.run());
    EXPECT_EQ(asked, (std::vector<std::string>{"remove the flag", "unregister"}));
}

/// Overlays whose frame data comes from another store.
class OtherStore : public FreshHost
{
protected:
    void SetUp() override
    {
        FreshHost::SetUp();
        auto* state = KivRenderState::KivRenderStateManager::instance();
        state->setCharacterizationState(KivCharacterizationCommonDef::CharacterizationReady);
        state->setCenterOfMassShow(true);
    }

    static void update(osg::Node& node)
    {
        const osg::ref_ptr<osgUtil::UpdateVisitor> visitor = new osgUtil::UpdateVisitor;
        node.accept(*visitor);
    }

    static osg::Vec3d positionOf(osg::Switch& nodes, unsigned int child)
    {
        return nodes.getChild(child)->asTransform()->asMatrixTransform()->getMatrix().getTrans();
    }
};

TEST_F(OtherStore, isTakenAtItsWordAboutTheNumberOfContactsThoughOnlyAHundredFitTheBuffer)
{
    contacts = [](KIV_STICKCONTACT** buffer, unsigned long long& count) {
        for (int i = 0; i < 100; ++i) {
            (*buffer)[i] = {0.0f, 0.01f, 0.0f, 0, {}};
        }
        count = 150;
        return true;
    };
    const osg::ref_ptr<osg::Switch> spheres = makeContactSwitch();
    spheres->addUpdateCallback(new StickContactUpdateCallback(spheres.get(), "3"));
    update(*spheres);
    ASSERT_EQ(spheres->getNumChildren(), 150u);
    EXPECT_NEAR(positionOf(*spheres, 99).z(), 1.0, 1e-6);
    EXPECT_EQ(positionOf(*spheres, 100), osg::Vec3d());
}

TEST_F(OtherStore, mayPointTheContactsBufferElsewhereAndSeesThatAgain)
{
    static KIV_STICKCONTACT own[1] = {{0.0f, 0.03f, 0.0f, 1, {}}};
    std::vector<KIV_STICKCONTACT*> seen;
    contacts = [&seen](KIV_STICKCONTACT** buffer, unsigned long long& count) {
        seen.push_back(*buffer);
        *buffer = own;
        count = 1;
        return true;
    };
    osg::ref_ptr<osg::Switch> spheres = makeContactSwitch();
    spheres->addUpdateCallback(new StickContactUpdateCallback(spheres.get(), "3"));
    update(*spheres);
    EXPECT_NEAR(positionOf(*spheres, 0).z(), 3.0, 1e-6);
    update(*spheres);
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_NE(seen[0], own);
    EXPECT_EQ(seen[1], own);
    spheres = nullptr;  // and frees its own buffer, not that one
}

TEST_F(OtherStore, mayPointTheCentreOfMassBufferElsewhereAndSeesThatAgain)
{
    static float own[10] = {1, 2, 3};
    std::vector<float*> seen;
    centreOfMass = [&seen](float** buffer, unsigned long long& count) {
        seen.push_back(*buffer);
        *buffer = own;
        count = 3;
        return true;
    };
    osg::ref_ptr<osg::Switch> markers = makeCentreOfMassSwitch();
    markers->addUpdateCallback(new GravityUpdateCallback(markers.get(), "3"));
    update(*markers);
    EXPECT_EQ(positionOf(*markers, 0), osg::Vec3d(1, -3, 2));
    update(*markers);
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_NE(seen[0], own);
    EXPECT_EQ(seen[1], own);
    markers = nullptr;
}

}  // namespace
