#include "host/KivFrameData/jointpositions.h"

#include <gmock/gmock.h>

#include <osg/MatrixTransform>

#include "tests/host/KivFrameData/legs.h"

namespace {

using KivFrameData::JointPositions;
using KivFrameDataTest::Actor;
using testing::ElementsAre;

TEST(JointPositions, areNoneBelowANodeWithoutSkeleton)
{
    const osg::ref_ptr<osg::Group> root = new osg::Group;
    const JointPositions joints(*root);
    EXPECT_TRUE(joints.empty());
    std::vector<osg::Vec3d> positions(3);
    joints.read(positions);
    EXPECT_TRUE(positions.empty());
}

TEST(JointPositions, namesJointsWithoutQualifierParentsFirst)
{
    const Actor actor("3", KivFrameDataTest::legsText(false));
    const JointPositions joints(*actor.root);
    EXPECT_THAT(joints.names(), ElementsAre("Hips", "LeftUpLeg", "LeftLeg", "LeftFoot", "LeftFootEnd",
                                            "RightUpLeg", "RightLeg", "RightFoot", "RightFootEnd"));
}

TEST(JointPositions, areYUpWhereTheSceneIsZUp)
{
    const Actor actor("0");
    actor.animation->pose(0.0);
    const JointPositions joints(*actor.root);
    std::vector<osg::Vec3d> positions;
    joints.read(positions);
    ASSERT_EQ(joints.names().front(), "Hips");
    EXPECT_LT((positions.front() - osg::Vec3d(0, 80, 0)).length(), 1e-4);
}

TEST(JointPositions, followWhatTheActorHangsOn)
{
    const Actor actor("0");
    const osg::ref_ptr<osg::MatrixTransform> moved =
        new osg::MatrixTransform(osg::Matrix::translate(0.0, -5.0, 7.0));
    moved->addChild(actor.root);
    actor.animation->pose(0.0);
    std::vector<osg::Vec3d> positions;
    JointPositions(*actor.root).read(positions);
    EXPECT_LT((positions.front() - osg::Vec3d(0, 87, 5)).length(), 1e-4);
}

}  // namespace
