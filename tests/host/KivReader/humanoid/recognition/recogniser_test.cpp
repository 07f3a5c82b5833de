// Who is a person, and which joint is which.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "host/KivReader/humanoid/recognition/recogniser.h"
#include "tests/host/KivReader/acceptedmotion.h"
#include "tests/support/foreignfigure.h"

namespace {

using namespace KivReader;
using KivReaderTest::accepted;
using KivTestSupport::ForeignFigure;
using testing::HasSubstr;

Recognition recognised(const MotionDocument& document)
{
    return recognise(document, builtInProfileTable());
}

Recognition recognisedText(const std::string& text)
{
    return recognised(accepted(text));
}

/// A chain of joints, each this far from the one before.
std::string snake(int joints, const std::string& offset)
{
    std::string text = "HIERARCHY\n";
    for (int i = 0; i < joints; ++i)
        text +=
            (i == 0 ? "ROOT j" : "JOINT j") + std::to_string(i) + "\n{\nOFFSET " + offset + "\nCHANNELS 0\n";
    return text + "End Site\n{\nOFFSET " + offset + "\n}\n" +
           std::string(static_cast<std::size_t>(joints), '}') + "\n";
}

TEST(Recogniser, saysOfOneJointAndOfASnakeThatTheyAreAChain)
{
    for (const int joints : {1, 2, 500}) {
        const Recognition found = recognisedText(snake(joints, "0 10 0"));
        EXPECT_FALSE(found.isHumanoid);
        EXPECT_THAT(found.whyNot, HasSubstr("one chain"));
        EXPECT_EQ(found.confidence, 0.0);
    }
}

TEST(Recogniser, saysOfAFigureWithoutLengthsThatItHasNone)
{
    MotionDocument document = accepted(ForeignFigure({}).text());
    for (MotionDocument::Joint& joint : document.joints)
        joint.offset = {};
    document.frames = 0;
    const Recognition found = recognised(document);
    EXPECT_FALSE(found.isHumanoid);
    EXPECT_THAT(found.whyNot, HasSubstr("no length"));
}

TEST(Recogniser, findsNoPersonInABustOrInSomebodyWithoutArms)
{
    ForeignFigure bust({});
    ForeignFigure armless({});
    armless.leaveOutHands();
    for (const std::string side : {"Left", "Right"}) {
        for (const char* joint : {"UpLeg", "Leg", "Foot"})
            bust.leaveOut(side + joint);
        for (const char* joint : {"Shoulder", "Arm", "ForeArm", "Hand"})
            armless.leaveOut(side + joint);
    }
    for (const ForeignFigure* figure : {&bust, &armless}) {
        const Recognition found = recognisedText(figure->text());
        EXPECT_FALSE(found.isHumanoid);
        EXPECT_FALSE(found.whyNot.empty());
    }
}

TEST(Recogniser, findsEveryJointByItsNamesWordsAndIsSure)
{
    const ForeignFigure figure({{"Hips", "rig_pelvis_jnt"},
                                {"LeftUpLeg", "rig_thigh_l_jnt"},
                                {"LeftLeg", "rig_knee_l_jnt"},
                                {"RightUpLeg", "rig_thigh_r_jnt"},
                                {"RightLeg", "rig_knee_r_jnt"},
                                {"LeftArm", "rig_upper_arm_l_jnt"},
                                {"RightArm", "rig_upper_arm_r_jnt"}});
    const MotionDocument document = accepted(figure.text());
    const Recognition found = recognised(document);
    ASSERT_TRUE(found.isHumanoid) << found.whyNot;
    EXPECT_EQ(document.joints[found.matching.at("LeftUpLeg")].name, "rig_thigh_l_jnt");
    EXPECT_EQ(document.joints[found.matching.at("RightLeg")].name, "rig_knee_r_jnt");
    EXPECT_EQ(document.joints[found.matching.at("RightArm")].name, "rig_upper_arm_r_jnt");
    EXPECT_GE(found.confidence, ProfileRecord::kGuess);
}

TEST(Recogniser, findsLimbsAndTrunkWithoutAnyName)
{
    const MotionDocument named = accepted(ForeignFigure({}).text());
    MotionDocument nameless = named;
    for (std::size_t i = 0; i < nameless.joints.size(); ++i)
        nameless.joints[i].name = "j" + std::to_string(i);
    const Recognition before = recognised(named);
    const Recognition after = recognised(nameless);
    ASSERT_TRUE(after.isHumanoid) << after.whyNot;
    for (const std::string joint :
         {"Hips", "Spine", "Neck", "Head", "LeftUpLeg", "LeftLeg", "LeftFoot", "RightUpLeg", "RightLeg",
          "RightFoot", "LeftArm", "LeftForeArm", "LeftHand", "RightArm", "RightForeArm", "RightHand"}) {
        ASSERT_TRUE(after.matching.has(joint)) << joint;
        EXPECT_EQ(after.matching.at(joint), before.matching.at(joint)) << joint;
    }
    EXPECT_LT(after.confidence, before.confidence);
}

TEST(Recogniser, givesAReasonForEveryJoint)
{
    const Recognition found = recognisedText(ForeignFigure({}).text());
    EXPECT_EQ(found.evidence.size(), found.matching.joints.size());
    for (const ProfileRecord::Evidence& evidence : found.evidence)
        EXPECT_FALSE(evidence.reasons.empty()) << evidence.joint;
}

TEST(ProfileText, isReadBackAsWhatWasRecognised)
{
    const MotionDocument document = accepted(ForeignFigure({{"Hips", "Becken"}, {"Head", "Kopf"}}).text());
    const ProfileRecord record = profileMotion(document, {});
    const ProfileTable table = parseProfileTable(profileTextOf(record), "written");
    ASSERT_EQ(table.dialects.size(), 1U);
    EXPECT_THAT(table.dialects.front().names, testing::Contains(testing::Pair("Becken", "Hips")));
    EXPECT_THAT(table.dialects.front().names, testing::Contains(testing::Pair("Kopf", "Head")));
    EXPECT_THAT(profileTextOf({}), HasSubstr("Not recognised as a person"));
}

}  // namespace
