#include "host/KivReader/humanoid/hinges.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using namespace KivReader;

constexpr LimbJoints kLimb = {0, 1, 2};
constexpr double kDegree = 0.017453292519943295;

/// A leg that hangs along -Z, its knee bent backwards (+Y) by so much, seen in frames turned by `twist`
/// against the scene's and all of it turned by `whole`.
Placements leg(double bend, const osg::Quat& twist = {}, const osg::Quat& whole = {})
{
    const osg::Quat knee(bend * kDegree, osg::Vec3d(1, 0, 0));
    Placements pose(3);
    pose[0].turn = twist * whole;
    pose[1].place = whole * osg::Vec3d(0, 0, -40);
    pose[1].turn = twist * knee * whole;
    pose[2].place = pose[1].place + whole * (knee * osg::Vec3d(0, 0, -40));
    return pose;
}

bool isNear(const osg::Vec3d& a, const osg::Vec3d& b)
{
    return (a - b).length() < 1e-6;
}

TEST(Hinges, areNotTrustedWithoutAnyPose)
{
    const Hinge hinge = hingeOf({}, kLimb);
    EXPECT_FALSE(hinge.isTrusted());
    EXPECT_EQ(hinge.axis, osg::Vec3d());
    EXPECT_EQ(hinge.range, 0.0);
}

TEST(Hinges, areNotTrustedForALimbWithoutLength)
{
    const Hinge hinge = hingeOf({Placements(3), Placements(3)}, kLimb);
    EXPECT_FALSE(hinge.isTrusted());
    EXPECT_TRUE(std::isfinite(hinge.axis.length() + hinge.agreement));
}

TEST(Hinges, areNotTrustedWhereTheLimbHardlyBends)
{
    EXPECT_FALSE(hingeOf({leg(30), leg(45)}, kLimb).isTrusted());
}

TEST(Hinges, areNotTrustedWhereTheLimbBendsEitherWay)
{
    EXPECT_FALSE(hingeOf({leg(60), leg(-60), leg(30)}, kLimb).isTrusted());
}

TEST(Hinges, ofAKneePointToTheLeft)
{
    const Hinge hinge = hingeOf({leg(5), leg(30), leg(60)}, kLimb);
    EXPECT_TRUE(hinge.isTrusted());
    EXPECT_NEAR(hinge.range, 55.0, 1e-6);
    EXPECT_NEAR(hinge.agreement, 1.0, 1e-9);
    EXPECT_TRUE(isNear(hinge.axis, {1, 0, 0})) << hinge.axis.x();
}

TEST(Hinges, lieInTheJointsOwnFramesHoweverThePersonTurns)
{
    const osg::Quat twist(1.1, osg::Vec3d(0.3, -0.5, 0.8));
    const osg::Quat around(2.0, osg::Vec3d(0, 0, 1));
    const Hinge hinge = hingeOf({leg(0, twist), leg(50, twist, around), leg(90, twist)}, kLimb);
    EXPECT_TRUE(hinge.isTrusted());
    EXPECT_TRUE(isNear(twist * hinge.axis, {1, 0, 0}));
    EXPECT_TRUE(isNear(twist * hinge.axisBelow, {1, 0, 0}));
}

TEST(Hinges, tellABendInDegrees)
{
    EXPECT_NEAR(bendOf(leg(0), kLimb), 0.0, 1e-6);
    EXPECT_NEAR(bendOf(leg(120), kLimb), 120.0, 1e-6);
    EXPECT_NEAR(bendNormal(leg(30), kLimb).length(), 0.5, 1e-9);
}

}  // namespace
