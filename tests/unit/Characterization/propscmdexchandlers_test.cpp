#include "KivCharacterization/Characterization/propscmdexchandlers.h"

#include <gtest/gtest.h>

#include "KivCharacterization/characterizationmanager.h"
#include "KivManipulator/propsgeode.h"
#include "KivTaskCommand/taskcommand.h"
#include "tests/support/freshhost.h"
#include "tests/support/manageraccess.h"

namespace {

using namespace KivCharacterization;
using KivManipulator::PropsGeode;

class PropsCommands : public KivTestSupport::FreshHost
{
protected:
    void SetUp() override
    {
        FreshHost::SetUp();
        geode = new PropsGeode("7", transform.get(), osg::Vec3f(), nullptr);
        geode->SetDefaultDragger();
        actors()["7"].fitting.propsMap["LeftProps"] = geode.get();
    }

    static CharacterizationManager& manager() { return *CharacterizationManager::instance(); }
    static ActorTable& actors() { return CharacterizationManagerAccess(manager()).actors; }

    osg::ref_ptr<osg::MatrixTransform> transform = new osg::MatrixTransform;
    osg::ref_ptr<PropsGeode> geode;
    KivTaskCommand::TaskCommand command;
};

TEST_F(PropsCommands, answerTrueAtOnceForAnUnknownActorAndFailWhenTheyRun)
{
    EXPECT_TRUE(manager().ShowPropsDragger(&command, 8, "LeftProps", true));
    EXPECT_FALSE(command.cmdExcImp()->prepare());
    EXPECT_FALSE(command.cmdExcImp()->execute());
    EXPECT_TRUE(command.cmdExcImp()->finish());
    EXPECT_FALSE(geode->isPropsDraggerShown());
}

TEST_F(PropsCommands, failForAnUnknownPropsAndForOneInOtherLetters)
{
    for (const char* name : {"RightProps", "leftprops", ""}) {
        manager().ShowContactPointDragger(&command, 7, name, true);
        EXPECT_FALSE(command.run()) << name;
    }
    const double matrix[16] = {};
    manager().SetPropsGemoetryMat(&command, 7, "RightProps", matrix);
    EXPECT_FALSE(command.cmdExcImp()->prepare());
    EXPECT_FALSE(command.cmdExcImp()->execute());
}

TEST_F(PropsCommands, writeANegativeIndexWithItsSign)
{
    manager().ShowPropsDragger(&command, -1, "LeftProps", true);
    EXPECT_FALSE(command.cmdExcImp()->prepare());
    actors()["-1"].fitting.propsMap["LeftProps"] = geode.get();
    EXPECT_TRUE(command.cmdExcImp()->prepare());
}

TEST_F(PropsCommands, missAPropsThatHasGoneSinceTheyWereMade)
{
    manager().ShowPropsDragger(&command, 7, "LeftProps", true);
    geode = nullptr;
    EXPECT_FALSE(command.cmdExcImp()->prepare());
    EXPECT_FALSE(command.cmdExcImp()->execute());
}

TEST_F(PropsCommands, missAPropsWhoseEntryIsEmpty)
{
    actors()["7"].fitting.propsMap["RightProps"] = nullptr;
    manager().ShowPropsDragger(&command, 7, "RightProps", true);
    EXPECT_FALSE(command.cmdExcImp()->prepare());
}

TEST_F(PropsCommands, findAPropsThatWasBuiltAfterTheyWereMade)
{
    manager().ShowPropsDragger(&command, 9, "RightProps", true);
    actors()["9"].fitting.propsMap["RightProps"] = geode.get();
    EXPECT_TRUE(command.run());
    EXPECT_TRUE(geode->isPropsDraggerShown());
}

TEST_F(PropsCommands, showAndHideTheContactPointDraggerAndNotTheOther)
{
    geode->ShowPropsDragger(true);
    manager().ShowContactPointDragger(&command, 7, "LeftProps", true);
    EXPECT_TRUE(command.run());
    EXPECT_TRUE(geode->isContactPointDraggerShown());
    manager().ShowContactPointDragger(&command, 7, "LeftProps", false);
    EXPECT_TRUE(command.run());
    EXPECT_FALSE(geode->isContactPointDraggerShown());
    EXPECT_TRUE(geode->isPropsDraggerShown());
}

TEST_F(PropsCommands, doNothingAndAnswerTrueForAKindThatIsNoDragger)
{
    PropsModifyCmdExcHandler handler(&actors(), "LeftProps", "7", static_cast<PropsModifyKind>(5), true);
    EXPECT_TRUE(handler.prepare());
    EXPECT_TRUE(handler.execute());
    EXPECT_FALSE(geode->isPropsDraggerShown());
    EXPECT_FALSE(geode->isContactPointDraggerShown());
}

TEST_F(PropsCommands, carryTheSixteenNumbersAsTheyWereWhenTheCommandWasMade)
{
    osg::Matrixd wanted = osg::Matrixd::rotate(0.5, osg::Vec3d(1, 2, 3)) * osg::Matrixd::translate(4, 5, 6);
    double numbers[16];
    std::copy_n(wanted.ptr(), 16, numbers);
    manager().SetPropsGemoetryMat(&command, 7, "LeftProps", numbers);
    std::fill_n(numbers, 16, 0.0);
    EXPECT_TRUE(command.run());
    EXPECT_EQ(geode->getPropsGeometryMat(), wanted);
    EXPECT_EQ(transform->getMatrix(), wanted);
}

}  // namespace
