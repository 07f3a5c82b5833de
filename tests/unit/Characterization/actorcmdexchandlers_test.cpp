#include "KivCharacterization/Characterization/actorcmdexchandlers.h"

#include <gtest/gtest.h>

#include "KivAnimation/basicanimationmanager.h"
#include "tests/support/freshhost.h"

namespace {

using namespace KivCharacterization;
using KivMemoryShare::SceneCfgShare;
using KivRenderState::KivRenderStateManager;

class ActorCommands : public KivTestSupport::FreshHost
{
protected:
    /// An actor in the scene, registered, with a label.
    SActorInfo& addActor(const std::string& key)
    {
        SActorInfo& actor = actors[key];
        actor.root = new osg::Group;
        actor.animation = new KivAnimation::Animation;
        actor.labelSwitch = new osg::Switch;
        actor.labelSwitch->addChild(new osg::Group, false);
        actor.labelText = new osgText::Text3D;
        scene()->addChild(actor.root);
        SceneCfgShare::instance()->getBaseAnimationManager()->registerAnimation(actor.animation.get());
        return actor;
    }

    static osg::Group* scene() { return SceneCfgShare::instance()->getCharacterSceneNode(); }
    static bool registered(const osg::ref_ptr<KivAnimation::Animation>& animation)
    {
        return SceneCfgShare::instance()->getBaseAnimationManager()->isRegistered(animation.get());
    }
    bool labelShown(const std::string& key) { return actors.at(key).labelSwitch->getValue(0); }

    static bool run(KivTaskCommand::ICmdExcDelegate& handler)
    {
        return handler.prepare() && handler.execute() && handler.finish();
    }

    ActorTable actors;
    FontTable fonts;
};

using RemovingActors = ActorCommands;

TEST_F(RemovingActors, failsWhenMoreAreAskedForThanThereAre)
{
    addActor("1");
    addActor("2");
    CmdRequireActorCountExcHandler remove(&actors, 3, "1");
    EXPECT_FALSE(remove.prepare());
    EXPECT_EQ(actors.size(), 2u);
    EXPECT_EQ(scene()->getNumChildren(), 2u);
}

TEST_F(RemovingActors, removesAllForACountOfZeroWhateverTheId)
{
    const osg::ref_ptr<KivAnimation::Animation> animation = addActor("1").animation;
    const osg::ref_ptr<osg::Switch> label = addActor("2").labelSwitch;
    label->setAllChildrenOn();
    CmdRequireActorCountExcHandler remove(&actors, 0, "99");
    EXPECT_TRUE(run(remove));
    EXPECT_TRUE(actors.empty());
    EXPECT_EQ(scene()->getNumChildren(), 0u);
    EXPECT_FALSE(registered(animation));
    // Nobody is left whose switch could be touched; the removed one's is not.
    EXPECT_TRUE(label->getValue(0));
}

TEST_F(RemovingActors, succeedsWhenTheActorIsGoneByThen)
{
    KivAnimation::Animation* animation = addActor("1").animation.get();
    CmdRequireActorCountExcHandler remove(&actors, 1, "1");
    ASSERT_TRUE(remove.prepare());
    SceneCfgShare::instance()->getBaseAnimationManager()->unregisterAnimation(animation);
    scene()->removeChildren(0, 1);
    actors.clear();
    EXPECT_TRUE(remove.execute());
    EXPECT_TRUE(actors.empty());
}

TEST_F(RemovingActors, setsTheLabelsOffForOneThatIsLeftWhenTheIdIsUnknown)
{
    addActor("1").labelSwitch->setAllChildrenOn();
    CmdRequireActorCountExcHandler remove(&actors, 1, "7");
    EXPECT_TRUE(run(remove));
    EXPECT_EQ(actors.size(), 1u);
    EXPECT_FALSE(labelShown("1"));
}

TEST_F(RemovingActors, setsTheLabelsOnForTwoThatAreLeftWhenTheIdIsUnknown)
{
    addActor("1");
    addActor("2");
    CmdRequireActorCountExcHandler remove(&actors, 1, "7");
    EXPECT_TRUE(run(remove));
    EXPECT_TRUE(labelShown("1"));
    EXPECT_TRUE(labelShown("2"));
}

TEST_F(RemovingActors, leavesTwoOfThreeWithTheirLabelsOn)
{
    addActor("1");
    addActor("2");
    addActor("3");
    CmdRequireActorCountExcHandler remove(&actors, 1, "2");
    EXPECT_TRUE(run(remove));
    EXPECT_TRUE(labelShown("1"));
    EXPECT_TRUE(labelShown("3"));
}

TEST_F(RemovingActors, leavesOneOfTwoWithItsLabelOff)
{
    addActor("1").labelSwitch->setAllChildrenOn();
    addActor("2");
    CmdRequireActorCountExcHandler remove(&actors, 2, "2");
    EXPECT_TRUE(run(remove));
    EXPECT_EQ(actors.count("1"), 1u);
    EXPECT_FALSE(labelShown("1"));
}

TEST_F(RemovingActors, selectsNobodyForAnEmptyId)
{
    addActor("1");
    CmdRequireActorCountExcHandler remove(&actors, 1, "");
    EXPECT_TRUE(run(remove));
    EXPECT_EQ(actors.size(), 1u);
}

TEST_F(RemovingActors, erasesAnActorWhoseRootIsGoneAlready)
{
    SActorInfo& actor = addActor("1");
    const osg::ref_ptr<KivAnimation::Animation> animation = actor.animation;
    CmdRequireActorCountExcHandler remove(&actors, 1, "1");
    ASSERT_TRUE(remove.prepare());
    scene()->removeChild(actor.root.get());
    actor.root = nullptr;
    EXPECT_TRUE(remove.execute());
    EXPECT_TRUE(actors.empty());
    EXPECT_FALSE(registered(animation));
}

TEST_F(RemovingActors, takesAwayTheFrameDataFlag)
{
    const osg::ref_ptr<KivAnimation::Animation> animation = addActor("1").animation;
    animation->pose(0.0);
    ASSERT_TRUE(animation->hasAnimationFrameDataFlag());
    CmdRequireActorCountExcHandler remove(&actors, 1, "1");
    run(remove);
    EXPECT_FALSE(animation->hasAnimationFrameDataFlag());
}

TEST_F(RemovingActors, skipsActorsWithoutALabel)
{
    addActor("1").labelSwitch = nullptr;
    addActor("2");
    addActor("3");
    CmdRequireActorCountExcHandler remove(&actors, 1, "3");
    EXPECT_TRUE(run(remove));
    EXPECT_TRUE(labelShown("2"));
}

using ResettingTheSession = ActorCommands;

TEST_F(ResettingTheSession, emptiesSceneAndTableButLeavesAnimationsRegistered)
{
    // Unlike a removal: the host drops the animations with its own session.
    const osg::ref_ptr<KivAnimation::Animation> animation = addActor("1").animation;
    addActor("2");
    ResetCharacterizaionSessionCmdExcHandler reset(&actors);
    EXPECT_TRUE(run(reset));
    EXPECT_TRUE(actors.empty());
    EXPECT_EQ(scene()->getNumChildren(), 0u);
    EXPECT_TRUE(registered(animation));
}

TEST_F(ResettingTheSession, forgetsTheReadersLastError)
{
    osg::Node* node = nullptr;
    KivAnimation::Animation* animation = nullptr;
    std::string name;
    KivReader::ReaderWriterBVH::readBVHNode("no motion", nullptr, &node, &animation, name, true);
    ASSERT_NE(KivReader::ReaderWriterBVH::lastError(), "");
    ResetCharacterizaionSessionCmdExcHandler reset(&actors);
    EXPECT_TRUE(run(reset));
    EXPECT_EQ(KivReader::ReaderWriterBVH::lastError(), "");
}

using RenamingAnActor = ActorCommands;

TEST_F(RenamingAnActor, failsForAnUnknownIdAndForAnActorWithoutLabel)
{
    ChangeActorNameExcHandler unknown(&actors, &fonts, "9", "New");
    EXPECT_FALSE(unknown.execute());
    addActor("9").labelText = nullptr;
    EXPECT_FALSE(unknown.execute());
}

TEST_F(RenamingAnActor, setsTheTextOfItsLabel)
{
    addActor("9");
    ChangeActorNameExcHandler rename(&actors, &fonts, "9", "J\xC3\xBCrgen");
    EXPECT_TRUE(run(rename));
    EXPECT_EQ(actors.at("9").labelText->getText().createUTF8EncodedString(), "J\xC3\xBCrgen");
}

TEST_F(RenamingAnActor, takesAnEmptyName)
{
    addActor("9");
    ChangeActorNameExcHandler rename(&actors, &fonts, "9", "");
    EXPECT_TRUE(run(rename));
    EXPECT_TRUE(actors.at("9").labelText->getText().empty());
}

using ColouringContacts = ActorCommands;

TEST_F(ColouringContacts, storesTheColourForActorsToComeInPrepare)
{
    const KivCommonDef::KIV_STICKCONTACT_COLOR color = {{9, 9, 9}, 0.1f, 0.2f, 0.3f};
    ChangeStickContactColorCmdExcHandler paint(&actors, color, "LeftFoot");
    EXPECT_TRUE(paint.prepare());
    EXPECT_TRUE(paint.prepare());  // also where the joint has a colour already
    const auto stored = KivRenderStateManager::instance()->getBVHContactColor();
    ASSERT_EQ(stored.count("LeftFoot"), 1u);
    EXPECT_EQ(stored.at("LeftFoot").green, 0.2f);
}

TEST_F(ColouringContacts, repaintsTheJointOfEveryActorFromTheLastTwelveBytes)
{
    addActor("1").animation = nullptr;
    std::vector<osg::ref_ptr<KivAnimation::Bone>> feet;
    for (const char* key : {"2", "3"}) {
        feet.push_back(new KivAnimation::Bone(std::string(key) + "#LeftFoot"));
        KivAnimation::PoseProgram program;
        program.joints.resize(1);
        program.joints[0].bone = feet.back().get();
        addActor(key).animation->setMotion({}, program);
    }

    const KivCommonDef::KIV_STICKCONTACT_COLOR color = {{9, 9, 9}, 0.1f, 0.2f, 0.3f};
    ChangeStickContactColorCmdExcHandler paint(&actors, color, "LeftFoot");
    EXPECT_TRUE(run(paint));
    for (const char* key : {"2", "3"}) {
        osg::Vec4f painted;
        ASSERT_TRUE(actors.at(key).animation->getJointContactColor("LeftFoot", painted)) << key;
        EXPECT_EQ(painted, osg::Vec4f(0.1f, 0.2f, 0.3f, 1.0f));
    }
}

}  // namespace
