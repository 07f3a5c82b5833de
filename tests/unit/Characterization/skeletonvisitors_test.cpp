#include "KivCharacterization/Characterization/skeletonvisitors.h"

#include <gtest/gtest.h>
#include <osg/Geode>

#include "tests/support/figures.h"

namespace {

using namespace KivCharacterization;
using namespace KivTestSupport;

BvhJointMap jointsOf(osg::Node& skeleton)
{
    BvhJointMap joints;
    osg::ref_ptr<CBvhSkeletonNodeVisitor> visitor = new CBvhSkeletonNodeVisitor(&joints);
    skeleton.accept(*visitor);
    return joints;
}

BvhSegmentMap segmentsOf(osg::Node& skeleton)
{
    BvhSegmentMap segments;
    osg::ref_ptr<CBVhCalBoneLenNodeVisitor> visitor = new CBVhCalBoneLenNodeVisitor(&segments);
    skeleton.accept(*visitor);
    return segments;
}

IveJointMap avatarJointsOf(osg::Node& avatar)
{
    IveJointMap joints;
    SkeletonExtra extra;
    osg::ref_ptr<CIveSkeletonNodeVisitor> visitor = new CIveSkeletonNodeVisitor(&joints, &extra);
    avatar.accept(*visitor);
    EXPECT_TRUE(extra.empty());
    return joints;
}

IveSegmentMap avatarSegmentsOf(osg::Node& avatar)
{
    IveSegmentMap segments;
    osg::ref_ptr<CIveCalBoneLenNodeVisitor> visitor = new CIveCalBoneLenNodeVisitor(&segments);
    avatar.accept(*visitor);
    return segments;
}

TEST(MotionSkeleton, withoutBonesHasNoJointsAndNoSegments)
{
    osg::ref_ptr<osg::Group> group = new osg::Group;
    group->addChild(new osg::MatrixTransform);
    EXPECT_TRUE(jointsOf(*group).empty());
    EXPECT_TRUE(segmentsOf(*group).empty());
}

TEST(MotionSkeleton, recordsNoSegmentForAPlainGroupButDescendsIntoIt)
{
    const auto hips = bone("7#Hips");
    osg::ref_ptr<osg::Group> between = new osg::Group;
    between->setName("7#Between");
    const auto spine = bone("7#Spine", osg::Vec3d(0, 0, 10));
    hips->addChild(between.get());
    between->addChild(spine);
    spine->addChild(bone("7#Neck", osg::Vec3d(0, 0, 20)));

    const BvhSegmentMap segments = segmentsOf(*hips);
    EXPECT_EQ(segments.size(), 1u);
    EXPECT_EQ(segments.count("Spine&Neck"), 1u);
    EXPECT_EQ(jointsOf(*hips).count("Between"), 0u);
}

TEST(MotionSkeleton, keepsTheLaterOfTwoBonesWithOneName)
{
    const auto root = bone("Root");
    const auto first = bone("A#Hips");
    const auto second = bone("B#Hips");
    root->addChild(first);
    root->addChild(second);
    EXPECT_EQ(jointsOf(*root).at("Hips"), second.get());
}

TEST(MotionSkeleton, measuresSegmentsOnTheRestPoseAndNotOnTheCurrentOne)
{
    const auto hips = bone("Hips");
    const auto leg = bone("LeftUpLeg", osg::Vec3d(3, 0, -4));
    hips->addChild(leg);
    leg->setMatrix(osg::Matrixd::translate(100, 100, 100));

    const BvhSegment segment = segmentsOf(*hips).at("Hips&LeftUpLeg");
    EXPECT_EQ(segment.offset, osg::Vec3f(3, 0, -4));
    EXPECT_FLOAT_EQ(segment.length, 5.0f);
}

TEST(MotionSkeleton, keepsEntriesOfEarlierWalks)
{
    BvhJointMap joints;
    const auto earlier = bone("Earlier");
    joints["Earlier"] = earlier.get();
    const auto hips = bone("Hips");
    osg::ref_ptr<CBvhSkeletonNodeVisitor> visitor = new CBvhSkeletonNodeVisitor(&joints);
    hips->accept(*visitor);
    EXPECT_EQ(joints.size(), 2u);
}

TEST(Avatar, collectsPiecesUnderTheirNodeAndNoSegmentForThem)
{
    const auto hips = avatarNode("Hips");
    const auto piece = avatarPiece("Joint:Hips$");
    hips->addChild(piece);
    hips->addChild(avatarNode("LeftUpLeg", osg::Vec3d(9, -3, 0)));

    const IveJointEntry entry = avatarJointsOf(*hips).at("Hips");
    EXPECT_EQ(entry.node, hips.get());
    ASSERT_EQ(entry.pieces.size(), 1u);
    EXPECT_EQ(entry.pieces[0], piece.get());

    const IveSegmentMap segments = avatarSegmentsOf(*hips);
    EXPECT_EQ(segments.size(), 1u);
    EXPECT_EQ(segments.at("Hips&LeftUpLeg").offset, osg::Vec3f(9, -3, 0));
    EXPECT_FLOAT_EQ(segments.at("Hips&LeftUpLeg").length, std::sqrt(90.0f));
}

TEST(Avatar, treatsAChildNamedAsThePrefixAloneAsNoPieceButAsASegment)
{
    const auto hips = avatarNode("Hips");
    hips->addChild(avatarNode("Joint:", osg::Vec3d(0, 2, 0)));
    EXPECT_TRUE(avatarJointsOf(*hips).at("Hips").pieces.empty());
    EXPECT_EQ(avatarSegmentsOf(*hips).count("Hips&Joint:"), 1u);
}

TEST(Avatar, doesNotEnterANodeNamedAsThePrefixAloneAsAJoint)
{
    const auto hips = avatarNode("Hips");
    hips->addChild(avatarNode("Joint:"));
    EXPECT_EQ(avatarJointsOf(*hips).count("Joint:"), 0u);
}

TEST(Avatar, entersNodesWithShortAndEmptyNames)
{
    const auto root = avatarNode("");
    root->addChild(avatarNode("Toe"));
    const IveJointMap joints = avatarJointsOf(*root);
    EXPECT_EQ(joints.count(""), 1u);
    EXPECT_EQ(joints.count("Toe"), 1u);
}

TEST(Avatar, countsOnlyTransformsAsPieces)
{
    const auto hips = avatarNode("Hips");
    osg::ref_ptr<osg::Geode> geode = new osg::Geode;
    geode->setName("Joint:Hips$");
    hips->addChild(geode.get());
    EXPECT_TRUE(avatarJointsOf(*hips).at("Hips").pieces.empty());
}

TEST(Avatar, resetsAnEntryThatIsThereAlready)
{
    const auto root = avatarNode("Root");
    const auto first = avatarNode("Hips");
    first->addChild(avatarPiece("Joint:Hips$"));
    const auto second = avatarNode("Hips");
    root->addChild(first);
    root->addChild(second);
    const IveJointEntry entry = avatarJointsOf(*root).at("Hips");
    EXPECT_EQ(entry.node, second.get());
    EXPECT_TRUE(entry.pieces.empty());
}

TEST(Avatar, isWalkedBelowItsPiecesAndBelowPlainGroups)
{
    const auto hips = avatarNode("Hips");
    const auto piece = avatarPiece("Joint:Hips$");
    const osg::ref_ptr<osg::Group> plain = new osg::Group;
    const auto tail = avatarNode("Tail", osg::Vec3d(0, 1, 0));
    tail->addChild(avatarNode("TailTip", osg::Vec3d(0, 2, 0)));
    hips->addChild(piece);
    piece->addChild(plain.get());
    plain->addChild(tail);
    const osg::ref_ptr<osg::Group> model = new osg::Group;
    model->addChild(hips);
    EXPECT_EQ(avatarJointsOf(*model).count("Tail"), 1u);
    EXPECT_EQ(avatarJointsOf(*model).count("TailTip"), 1u);
    EXPECT_EQ(avatarSegmentsOf(*model).count("Tail&TailTip"), 1u);
}

TEST(Avatar, doesNotNormaliseNamesInItsSegmentKeys)
{
    const auto hips = avatarNode("A#Hips");
    hips->addChild(avatarNode("Spine", osg::Vec3d(0, 9, 0)));
    EXPECT_EQ(avatarSegmentsOf(*hips).count("A#Hips&Spine"), 1u);
}

}  // namespace
