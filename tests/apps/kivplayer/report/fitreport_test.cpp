#include "apps/kivplayer/report/fitreport.h"

#include <gmock/gmock.h>
#include <osg/MatrixTransform>

#include <cmath>

#include "tests/apps/kivplayer/bones.h"

namespace {

using namespace KivPlayer;
using testing::ElementsAre;

/// Hips with a spine that wears one piece, a tail with an end site, and one thigh.
class FitReportOfAFigure : public testing::Test
{
protected:
    void SetUp() override
    {
        const osg::ref_ptr<KivAnimation::Bone> hips = boneAt("0#Hips", {});
        const osg::ref_ptr<KivAnimation::Bone> spine = boneAt("0#Spine", {0, 0, 12});
        const osg::ref_ptr<KivAnimation::Bone> tail = boneAt("0#Tail", {0, 20, 0});
        m_spSkeleton->addChild(hips);
        hips->addChild(spine);
        hips->addChild(tail);
        hips->addChild(boneAt("0#LeftUpLeg", {10, 0, 0}));
        tail->addChild(boneAt("0#TailEnd", {0, 5, 0}));
        wear(*spine, "Joint:Spine$");
        m_spScene->addChild(m_spRoot);
        m_spRoot->addChild(m_spSkeleton);
        m_avatar.joints = {{"Hips", {"Joint:Hips"}}, {"Spine", {"Joint:Spine$"}}, {"Head", {"Joint:Head$"}}};
        m_avatar.segments = {{"Hips&Spine", {8.0, {0, 0, 8}}}, {"Hips&LeftUpLeg", {0.0, {}}}};
        m_actor.file = "a.bvh";
    }

    static void wear(KivAnimation::Bone& bone, const std::string& piece)
    {
        const osg::ref_ptr<osg::MatrixTransform> holder = new osg::MatrixTransform;
        const osg::ref_ptr<osg::MatrixTransform> copy = new osg::MatrixTransform;
        copy->setName(piece);
        holder->addChild(copy);
        bone.addChild(holder);
    }

    ActorFit fit()
    {
        m_actor.dressed = *DressedActor::find(*m_spScene, "0");
        return fitReportOf({{0, m_actor}}, m_avatar).actors.at(0);
    }

    osg::ref_ptr<osg::Group> m_spScene = new osg::Group;
    osg::ref_ptr<osg::Group> m_spRoot = new osg::Group;
    osg::ref_ptr<KivAnimation::Skeleton> m_spSkeleton = new KivAnimation::Skeleton;
    AvatarFile m_avatar;
    LoadedActor m_actor;
};

TEST_F(FitReportOfAFigure, saysOfEachPieceWhyItIsNotWorn)
{
    const ActorFit actor = fit();
    EXPECT_EQ(actor.attached, 1U);
    ASSERT_EQ(actor.skipped.size(), 2U);
    EXPECT_EQ(actor.skipped[0].piece, "Joint:Head$");
    EXPECT_EQ(actor.skipped[0].reason, "the skeleton has no joint Head");
    EXPECT_EQ(actor.skipped[1].reason, "its name has no closing $");
}

TEST_F(FitReportOfAFigure, leavesRatiosAndFactorsUnsetWhereTheAvatarHasNoLength)
{
    const ActorFit actor = fit();
    EXPECT_FALSE(actor.hipRatio);
    EXPECT_FALSE(actor.handRatio);
    ASSERT_EQ(actor.segments.size(), 2U);
    EXPECT_EQ(actor.segments[0].key, "Hips&LeftUpLeg");
    EXPECT_FALSE(actor.segments[0].factor);
    EXPECT_DOUBLE_EQ(actor.segments[1].factor.value(), 1.5);
}

TEST_F(FitReportOfAFigure, listsTheJointsThatAReaderHasLeftAloneButNoEndSites)
{
    const ActorFit actor = fit();
    EXPECT_EQ(actor.joints, 5U);
    EXPECT_THAT(actor.matched, ElementsAre("Hips", "Spine"));
    ASSERT_EQ(actor.unmatched.size(), 2U);
    EXPECT_EQ(actor.unmatched[0].joint, "Tail");
    EXPECT_TRUE(actor.unmatched[0].nearest.empty()) << "only the reader suggests names";
}

TEST_F(FitReportOfAFigure, hasUnmatchedJointsAndSuggestionsAsTheReaderGivesThem)
{
    m_actor.profile.unmatched = {{"tail_01", {"Spine"}}};
    const ActorFit actor = fit();
    ASSERT_EQ(actor.unmatched.size(), 1U);
    EXPECT_EQ(actor.unmatched[0].joint, "tail_01");
    EXPECT_THAT(actor.unmatched[0].nearest, ElementsAre("Spine"));
}

TEST_F(FitReportOfAFigure, putsThePlaceOfAWarningInFront)
{
    m_actor.document.warnings.push_back({20, 1, "a short row"});
    m_actor.profile.warnings.push_back("legs differ");
    EXPECT_THAT(fit().warnings, ElementsAre("a.bvh:20:1: a short row", "a.bvh: legs differ"));
}

TEST(FitReport, keepsTheErrorsOfMotionsThatAreNoActors)
{
    const FitReport report = fitReportOf({}, AvatarFile(), {{"a.bvh", 12, 5, "bad"}});
    EXPECT_TRUE(report.actors.empty());
    ASSERT_EQ(report.errors.size(), 1U);
    EXPECT_EQ(report.errors[0].line, 12U);
}

}  // namespace
