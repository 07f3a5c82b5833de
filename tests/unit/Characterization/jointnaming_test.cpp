#include "KivCharacterization/Characterization/jointnaming.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace KivCharacterization;

struct PieceName
{
    const char* name;
    const char* fullName;
    const char* baseName;
    SegmentPieceKind kind;
};

class PieceNames : public testing::TestWithParam<PieceName>
{
};

TEST_P(PieceNames, splitIntoBaseNameAndKind)
{
    EXPECT_EQ(PieceBaseName(GetParam().fullName), GetParam().baseName);
    EXPECT_EQ(ClassifySegmentPiece(GetParam().fullName), GetParam().kind);
}

INSTANTIATE_TEST_SUITE_P(
    , PieceNames,
    testing::Values(
        PieceName{"anEmptyName", "", "", SegmentPieceKind::None},
        PieceName{"aNameShorterThanThePrefix", "Join", "", SegmentPieceKind::None},
        PieceName{"thePrefixAlone", "Joint:", "", SegmentPieceKind::None},
        PieceName{"aNameWithoutMarks", "Joint:Hips", "Hips", SegmentPieceKind::None},
        PieceName{"aTagWithoutEnd", "Joint:A&B#Inner", "A&B", SegmentPieceKind::None},
        PieceName{"anEndWithoutTag", "Joint:Hips&Spine$", "Hips&Spine", SegmentPieceKind::None},
        PieceName{"anEndBeforeTheTag", "Joint:A$#Inner$", "A$", SegmentPieceKind::None},
        PieceName{"aTagInLowerCase", "Joint:Hips&LeftUpLeg#inner$", "Hips&LeftUpLeg", SegmentPieceKind::None},
        PieceName{"aLongerTag", "Joint:A&B#Inner2$", "A&B", SegmentPieceKind::None},
        PieceName{"aShorterTag", "Joint:A&B#Inne$", "A&B", SegmentPieceKind::None},
        PieceName{"anEmptyTag", "Joint:A&B#$", "A&B", SegmentPieceKind::None},
        PieceName{"aTagThatHoldsASecondMark", "Joint:A&B#Inner#Outer$", "A&B", SegmentPieceKind::None},
        PieceName{"aNumberedHandPiece", "Joint:LeftHand#3$", "LeftHand", SegmentPieceKind::None},
        PieceName{"anInnerPiece", "Joint:Hips&LeftUpLeg#Inner$", "Hips&LeftUpLeg", SegmentPieceKind::Inner},
        PieceName{"anOuterPiece", "Joint:Hips&LeftUpLeg#Outer$", "Hips&LeftUpLeg", SegmentPieceKind::Outer}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(SegmentPieceKinds, haveTheValuesThatReportsShow)
{
    EXPECT_EQ(static_cast<unsigned int>(SegmentPieceKind::None), 0u);
    EXPECT_EQ(static_cast<unsigned int>(SegmentPieceKind::Inner), 1u);
    EXPECT_EQ(static_cast<unsigned int>(SegmentPieceKind::Outer), 2u);
}

TEST(JointNames, loseTheirQualifierUpToTheFirstMark)
{
    EXPECT_EQ(NormaliseJointName("Actor1#Hips"), "Hips");
    EXPECT_EQ(NormaliseJointName("Hips"), "Hips");
    EXPECT_EQ(NormaliseJointName("7#a#b"), "a#b");
    EXPECT_EQ(NormaliseJointName("7#"), "");
    EXPECT_EQ(NormaliseJointName(""), "");
}

TEST(SegmentKeys, joinParentAndChild)
{
    EXPECT_EQ(SegmentKey("Hips", "LeftUpLeg"), "Hips&LeftUpLeg");
    EXPECT_EQ(SegmentKey("", ""), "&");
}

TEST(PropsJoints, containPropsAndNotEnd)
{
    EXPECT_TRUE(IsPropsJoint("LeftProps"));
    EXPECT_TRUE(IsPropsJoint("PropsBall"));
    EXPECT_FALSE(IsPropsJoint("LeftPropsEnd"));
    EXPECT_FALSE(IsPropsJoint("PropsBallEnd"));
    EXPECT_FALSE(IsPropsJoint("EndProps"));
    EXPECT_FALSE(IsPropsJoint("props1"));
    EXPECT_FALSE(IsPropsJoint("Prop"));
    EXPECT_FALSE(IsPropsJoint(""));
}

std::vector<std::string> namesOfTheTable()
{
    std::vector<std::string> names;
    for (const auto& [name, entry] : SpecialJointTable::instance().entries()) {
        names.push_back(name);
    }
    return names;
}

// Taken before any test looks a name up, since a look-up enters what it missed.
const std::vector<std::string> namesAtLoad = namesOfTheTable();

class SpecialJoints : public testing::Test
{
protected:
    void TearDown() override
    {
        for (const auto& [name, entry] : SpecialJointTable::instance().entries()) {
            SpecialJointTable::instance().record(name, nullptr);
        }
    }
};

TEST_F(SpecialJoints, areTheEighteenTorsoAndHandPieces)
{
    std::vector<std::string> expected = {"Joint:Hips&Spine$", "Joint:Spine1$", "Joint:Spine2$",
                                         "Joint:Spine3&Neck$"};
    for (const char* hand : {"Joint:LeftHand", "Joint:RightHand"}) {
        expected.push_back(std::string(hand) + "$");
        for (char number = '1'; number <= '6'; ++number) {
            expected.push_back(std::string(hand) + "#" + number + "$");
        }
    }
    EXPECT_EQ(namesAtLoad.size(), 18u);
    EXPECT_THAT(namesAtLoad, testing::UnorderedElementsAreArray(expected));
    for (const std::string& name : expected) {
        EXPECT_EQ(SpecialJointTable::instance().find(name), nullptr) << name;
    }
}

TEST_F(SpecialJoints, enterAMissingNameWithNullWhenLookedUp)
{
    EXPECT_EQ(SpecialJointTable::instance().find("Joint:NotSpecial$"), nullptr);
    EXPECT_EQ(SpecialJointTable::instance().entries().count("Joint:NotSpecial$"), 1u);
}

TEST_F(SpecialJoints, recordOnlyNamesOfTheTable)
{
    osg::ref_ptr<osg::MatrixTransform> transform = new osg::MatrixTransform;
    EXPECT_FALSE(SpecialJointTable::instance().record("Joint:Unheard$", transform.get()));
    EXPECT_EQ(SpecialJointTable::instance().entries().count("Joint:Unheard$"), 0u);
    EXPECT_TRUE(SpecialJointTable::instance().record("Joint:Spine1$", transform.get()));
    EXPECT_EQ(SpecialJointTable::instance().find("Joint:Spine1$"), transform.get());
}

TEST_F(SpecialJoints, readAsNullOnceTheTransformIsGone)
{
    osg::ref_ptr<osg::MatrixTransform> transform = new osg::MatrixTransform;
    SpecialJointTable::instance().record("Joint:Spine2$", transform.get());
    transform = nullptr;
    EXPECT_EQ(SpecialJointTable::instance().find("Joint:Spine2$"), nullptr);
}

}  // namespace
