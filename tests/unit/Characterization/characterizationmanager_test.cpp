#include "KivCharacterization/characterizationmanager.h"

#include <gtest/gtest.h>
#include <osg/Notify>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "KivCharacterization/Characterization/kivpropsproertymanager.h"
#include "KivCharacterization/ipropspropertymodifynotify.h"
#include "KivTaskCommand/taskcommand.h"
#include "tests/support/freshhost.h"
#include "tests/support/manageraccess.h"

namespace {

using namespace KivCharacterization;
using KivRenderState::KivRenderStateManager;

class Manager : public KivTestSupport::FreshHost
{
protected:
    static CharacterizationManager& manager() { return *CharacterizationManager::instance(); }
    static CharacterizationManagerAccess access() { return CharacterizationManagerAccess(manager()); }
};

TEST_F(Manager, isReleasedHarmlesslyWhenThereIsNone)
{
    CharacterizationManager::releaseIns();
    EXPECT_EQ(CharacterizationManagerAccess::current(), nullptr);
    CharacterizationManager::releaseIns();
    EXPECT_EQ(CharacterizationManagerAccess::current(), nullptr);
}

TEST_F(Manager, isOneUntilItIsReleasedAndThenAFreshOne)
{
    CharacterizationManager* first = &manager();
    EXPECT_EQ(first, CharacterizationManager::instance());
    access().actors["1"];
    access().rootDir = "/somewhere";
    manager().DisableCharacterizaion();
    CharacterizationManager::releaseIns();
    EXPECT_TRUE(access().isEnabled());
    EXPECT_TRUE(access().actors.empty());
    EXPECT_TRUE(access().avatars.empty());
    EXPECT_TRUE(access().fonts.empty());
    EXPECT_EQ(access().rootDir, "");
    EXPECT_FALSE(access().heldObject.valid());
}

class HeardWarnings : public osg::NotifyHandler
{
public:
    void notify(osg::NotifySeverity, const char* message) override { text += message; }
    std::string text;
};

TEST_F(Manager, warnsInDebugBuildsWhenItIsReleasedBeforeItsCommands)
{
#ifdef NDEBUG
    GTEST_SKIP() << "only debug builds count commands";
#endif
    const osg::ref_ptr<HeardWarnings> heard = new HeardWarnings;
    osg::NotifyHandler* const usual = osg::getNotifyHandler();
    const osg::ref_ptr<osg::NotifyHandler> keepUsual = usual;
    osg::setNotifyHandler(heard.get());

    auto command = std::make_unique<KivTaskCommand::TaskCommand>();
    manager().createLoadBVHCommand("HIERARCHY", 1, "One", command.get());
    command.reset();
    CharacterizationManager::releaseIns();
    EXPECT_EQ(heard->text, "");

    command = std::make_unique<KivTaskCommand::TaskCommand>();
    manager().createLoadBVHCommand("HIERARCHY", 1, "One", command.get());
    CharacterizationManager::releaseIns();
    EXPECT_NE(heard->text.find("1 commands still point into the manager"), std::string::npos) << heard->text;
    osg::setNotifyHandler(keepUsual.get());
}

TEST_F(Manager, canBeSwitchedOffAndOn)
{
    EXPECT_TRUE(access().isEnabled());
    EXPECT_TRUE(manager().DisableCharacterizaion());
    EXPECT_FALSE(access().isEnabled());
    EXPECT_TRUE(manager().EnableCharacterizaion());
    EXPECT_TRUE(access().isEnabled());
}

TEST_F(Manager, refusesLoadCommandsWhileSwitchedOffAndAttachesNothing)
{
    manager().DisableCharacterizaion();
    KivTaskCommand::TaskCommand command;
    EXPECT_FALSE(manager().createLoadBVHCommand("HIERARCHY", 1, "One", &command));
    EXPECT_EQ(command.cmdExcImp(), nullptr);
    EXPECT_EQ(KivRenderStateManager::instance()->getCharacterizationState(),
              KivCharacterizationCommonDef::CharacterizationReady);
}

TEST_F(Manager, answersTheRenderStatesCameraTrace)
{
    KivRenderStateManager::instance()->setCameraTraceState(true);
    KivRenderStateManager::instance()->setCameraTraceIdStr("4");
    bool on = false;
    std::string id = "stale";
    EXPECT_TRUE(manager().GetCameraTraceState(on, id));
    EXPECT_TRUE(on);
    EXPECT_EQ(id, "4");
}

TEST_F(Manager, sharesSceneObjectsWithItsCopies)
{
    SActorInfo actor;
    actor.root = new osg::Group;
    access().actors["3"] = actor;
    access().avatars["avatar"].node = new osg::Group;
    access().avatars["avatar"].jointMap["Hips"];
    access().fonts["font"] = new osgText::Font;
    const osg::ref_ptr<osg::Node> model = access().avatars["avatar"].node;
    const osg::ref_ptr<osgText::Font> font = access().fonts["font"];
    access().heldObject = new osg::Referenced;
    manager().DisableCharacterizaion();
    access().rootDir = "/here";

    CharacterizationManager* copy = nullptr;
    {
        // The destructor is the manager's own business, so a copy can only be made in place.
        alignas(CharacterizationManager) static unsigned char memory[sizeof(CharacterizationManager)];
        copy = new (memory) CharacterizationManager(manager());
    }
    CharacterizationManagerAccess copied(*copy);
    EXPECT_EQ(copied.actors.at("3").root, actor.root);
    EXPECT_EQ(copied.heldObject, access().heldObject);
    EXPECT_EQ(copied.heldObject->referenceCount(), 2);
    EXPECT_EQ(copied.rootDir, "/here");
    EXPECT_FALSE(copied.isEnabled());

    EXPECT_EQ(copied.avatars.at("avatar").node, model);
    EXPECT_EQ(copied.fonts.at("font"), font);

    // The tables are copies of their own.
    access().actors.clear();
    access().avatars["avatar"].jointMap.clear();
    access().fonts.clear();
    manager().EnableCharacterizaion();
    EXPECT_EQ(copied.actors.size(), 1u);
    EXPECT_EQ(copied.avatars.at("avatar").jointMap.size(), 1u);
    EXPECT_EQ(copied.fonts.size(), 1u);
    *copy = manager();
    EXPECT_TRUE(copied.actors.empty());
    EXPECT_TRUE(copied.avatars.at("avatar").jointMap.empty());
    EXPECT_TRUE(copied.fonts.empty());
    copied.avatars.clear();
    EXPECT_TRUE(copied.isEnabled());
    copied.rootDir = std::string();
    copied.heldObject = nullptr;
}

TEST_F(Manager, isLeftAsItWasByAssigningItToItself)
{
    access().actors["3"].root = new osg::Group;
    access().fonts["font"] = nullptr;
    access().avatars["avatar"];
    access().rootDir = "/here";
    access().heldObject = new osg::Referenced;
    manager().DisableCharacterizaion();
    CharacterizationManager& same = manager();
    manager() = same;
    EXPECT_EQ(access().heldObject->referenceCount(), 1);
    EXPECT_FALSE(access().isEnabled());
    EXPECT_TRUE(access().actors.at("3").root.valid());
    EXPECT_EQ(access().fonts.size(), 1u);
    EXPECT_EQ(access().avatars.size(), 1u);
    EXPECT_EQ(access().rootDir, "/here");
}

/// Counts what reaches it.
class Listener : public IPropsPropertyModifyNotify
{
public:
    int told = 0;
    bool PropsVectorsChanged(const osg::Vec3f&, const osg::Vec3f&) override { return ++told > 0; }
    bool PropsValuesChanged(const osg::Quat&, const osg::Vec3d&) override { return ++told > 0; }
    bool PropsFlagChanged(bool) override { return ++told > 0; }
    bool IsPropsConcerned(const std::string&) override { return true; }
};

TEST_F(Manager, takesThePropsObserversWithItWhenReleased)
{
    Listener observer;
    EXPECT_TRUE(manager().RegistPropsPropertyChangeNotify(&observer));
    CharacterizationManager::releaseIns();
    KivPropsProertyManager::Instance()->PropsFlagChanged("P", true);
    EXPECT_EQ(observer.told, 0);
    EXPECT_FALSE(manager().UnRegistPropsPropertyChangeNotify(&observer));
}

/// A scene object that writes down when it goes, and whether an observer of props is still told then.
template <typename Base>
class Going : public Base
{
public:
    Going(std::string name, std::vector<std::string>& log) : m_name(std::move(name)), m_pLog(&log) {}

protected:
    ~Going() override
    {
        KivPropsProertyManager::Instance()->PropsFlagChanged("P", true);
        m_pLog->push_back(m_name);
    }

private:
    std::string m_name;
    std::vector<std::string>* m_pLog;
};

TEST_F(Manager, goesWithItsPropsObserversFirstAndItsFontsLast)
{
    std::vector<std::string> gone;
    Listener observer;
    manager().RegistPropsPropertyChangeNotify(&observer);
    access().fonts["font"] = new Going<osgText::Font>("font", gone);
    access().heldObject = new Going<osg::Referenced>("held object", gone);
    access().actors["1"].root = new Going<osg::Group>("actor", gone);
    access().avatars["avatar"].node = new Going<osg::Group>("avatar", gone);
    CharacterizationManager::releaseIns();
    EXPECT_EQ(gone, (std::vector<std::string>{"avatar", "actor", "held object", "font"}));
    EXPECT_EQ(observer.told, 0);
}

TEST_F(Manager, handsAPropsChangeOnceToAnObserverThatWasRegisteredTwice)
{
    Listener observer;
    EXPECT_FALSE(manager().UnRegistPropsPropertyChangeNotify(&observer));
    EXPECT_TRUE(manager().RegistPropsPropertyChangeNotify(&observer));
    EXPECT_TRUE(manager().RegistPropsPropertyChangeNotify(&observer));
    KivPropsProertyManager::Instance()->CreateProertyChangeLink()->PropsFlagChanged("P", true);
    EXPECT_EQ(observer.told, 1);
    EXPECT_TRUE(manager().UnRegistPropsPropertyChangeNotify(&observer));
    EXPECT_FALSE(manager().UnRegistPropsPropertyChangeNotify(&observer));
}

/// Commands made through the exported operations and run to their end.
class RunCommands : public Manager
{
protected:
    SActorInfo& addActor(const std::string& key)
    {
        SActorInfo& actor = access().actors[key];
        actor.root = new osg::Group;
        actor.animation = new KivAnimation::Animation;
        actor.labelSwitch = new osg::Switch;
        actor.labelSwitch->addChild(new osg::Group, false);
        actor.labelText = new osgText::Text3D;
        KivMemoryShare::SceneCfgShare::instance()->getCharacterSceneNode()->addChild(actor.root);
        return actor;
    }

    KivTaskCommand::TaskCommand command;
};

TEST_F(RunCommands, removeNobodyWhenMoreAreAskedForThanThereAre)
{
    addActor("1");
    const SActorInfo& two = addActor("2");
    EXPECT_TRUE(manager().ClearOrRemoveActor(&command, 3, 1));
    EXPECT_FALSE(command.run());
    EXPECT_EQ(access().actors.size(), 2u);
    EXPECT_TRUE(two.labelSwitch->getValue(0));
}

TEST_F(RunCommands, removeTheActorOfTheIndex)
{
    addActor("1");
    addActor("2");
    EXPECT_TRUE(manager().ClearOrRemoveActor(&command, 1, 2));
    EXPECT_TRUE(command.run());
    EXPECT_EQ(access().actors.count("1"), 1u);
    EXPECT_EQ(access().actors.count("2"), 0u);
}

TEST_F(RunCommands, renameTheActorOfTheIndexAndFailForAnUnknownOne)
{
    addActor("4");
    EXPECT_TRUE(manager().createChangeActorNameCommand(5, "Nobody", &command));
    EXPECT_FALSE(command.run());
    EXPECT_TRUE(manager().createChangeActorNameCommand(4, "New", &command));
    EXPECT_TRUE(command.run());
    EXPECT_EQ(access().actors.at("4").labelText->getText().createUTF8EncodedString(), "New");
}

TEST_F(RunCommands, takeIndicesAsUnsignedNumbers)
{
    addActor("4294967295");
    EXPECT_TRUE(manager().createChangeActorNameCommand(4294967295u, "Last", &command));
    EXPECT_TRUE(command.run());
    EXPECT_TRUE(manager().ClearOrRemoveActor(&command, 1, 4294967295u));
    EXPECT_TRUE(command.run());
    EXPECT_TRUE(access().actors.empty());
}

TEST_F(RunCommands, traceAnActorWithTheCamera)
{
    EXPECT_TRUE(manager().CameraTrace(&command, true, "6"));
    EXPECT_TRUE(command.run());
    EXPECT_TRUE(KivRenderStateManager::instance()->getCameraTraceState());
    EXPECT_EQ(KivRenderStateManager::instance()->getCameraTraceIdStr(), "6");
}

TEST_F(RunCommands, sendTheCameraHome)
{
    KivRenderStateManager::instance()->setCameraTraceMatrix(osg::Matrixd::translate(1, 2, 3));
    EXPECT_TRUE(manager().CameraHomePosition(&command));
    EXPECT_TRUE(command.run());
    EXPECT_TRUE(KivRenderStateManager::instance()->getCameraTraceMatrix().isIdentity());
}

TEST_F(RunCommands, storeAContactColourUnderTheJointsName)
{
    const KivCommonDef::KIV_STICKCONTACT_COLOR color = {{0, 0, 0}, 0.25f, 0.5f, 0.75f};
    EXPECT_TRUE(manager().ChangeActorStactColorCommand("LeftFoot", color, &command));
    EXPECT_TRUE(command.run());
    EXPECT_EQ(KivRenderStateManager::instance()->getBVHContactColor().at("LeftFoot").blue, 0.75f);
}

TEST_F(RunCommands, resetTheSessionAndKeepAvatarAndFont)
{
    addActor("1");
    access().avatars["avatar"];
    access().fonts["font"] = nullptr;
    EXPECT_TRUE(manager().ResetCharacterizationManager(&command));
    EXPECT_TRUE(command.run());
    EXPECT_TRUE(access().actors.empty());
    EXPECT_EQ(access().avatars.size(), 1u);
    EXPECT_EQ(access().fonts.size(), 1u);
}

struct CommandCodes
{
    const char* name;
    bool (*create)(CharacterizationManager& manager, KivTaskCommand::TaskCommand& command);
    int first;
};

class Commands : public testing::TestWithParam<CommandCodes>
{
};

TEST_P(Commands, attachTheirHandlerWithItsCodes)
{
    KivTaskCommand::TaskCommand command;
    EXPECT_TRUE(GetParam().create(*CharacterizationManager::instance(), command));
    ASSERT_NE(command.cmdExcImp(), nullptr);
    const auto& codes = command.cmdExcImp()->m_codes;
    EXPECT_EQ(codes[0], 1);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(codes[1 + i], GetParam().first + i);
    }
    CharacterizationManager::releaseIns();
}

const double kIdentity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

INSTANTIATE_TEST_SUITE_P(
    , Commands,
    testing::Values(
        CommandCodes{"load", [](auto& m, auto& c) { return m.createLoadBVHCommand("", 1, "", &c); }, 2},
        CommandCodes{"reset", [](auto& m, auto& c) { return m.ResetCharacterizationManager(&c); }, 23},
        CommandCodes{"cameraTrace", [](auto& m, auto& c) { return m.CameraTrace(&c, true, "1"); }, 26},
        CommandCodes{"remove", [](auto& m, auto& c) { return m.ClearOrRemoveActor(&c, 1, 1); }, 32},
        CommandCodes{"cameraHome", [](auto& m, auto& c) { return m.CameraHomePosition(&c); }, 38},
        CommandCodes{"propsDragger", [](auto& m, auto& c) { return m.ShowPropsDragger(&c, 1, "P", true); },
                     41},
        CommandCodes{"contactDragger",
                     [](auto& m, auto& c) { return m.ShowContactPointDragger(&c, 1, "P", true); }, 41},
        CommandCodes{"propsMatrix",
                     [](auto& m, auto& c) { return m.SetPropsGemoetryMat(&c, 1, "P", kIdentity); }, 44},
        CommandCodes{"rename", [](auto& m, auto& c) { return m.createChangeActorNameCommand(1, "New", &c); },
                     47},
        CommandCodes{"contactColour",
                     [](auto& m, auto& c) {
                         return m.ChangeActorStactColorCommand("Hips", KivCommonDef::KIV_STICKCONTACT_COLOR(),
                                                               &c);
                     },
                     50}),
    [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
