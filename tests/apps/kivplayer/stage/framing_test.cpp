#include "apps/kivplayer/stage/framing.h"

#include <gtest/gtest.h>
#include <osg/Matrixd>

#include <cmath>
#include <vector>

namespace {

using KivPlayer::CameraPose;
using KivPlayer::frameAll;

osg::Vec3d onPicture(const CameraPose& pose, const osg::Vec3d& point, double aspect)
{
    return point * osg::Matrixd::lookAt(pose.eye, pose.target, pose.up) *
           osg::Matrixd::perspective(30.0, aspect, 1.0, 10000.0);
}

TEST(Framing, looksAtAPersonsPlaceWhereThereAreNoPoints)
{
    const CameraPose pose = frameAll({}, -osg::PI_2, 0.1, 30.0, 1.5, 10.0);
    EXPECT_TRUE(pose.eye.valid());
    EXPECT_LT(pose.eye.y(), -100.0);
}

TEST(Framing, staysAwayFromASinglePoint)
{
    const CameraPose pose = frameAll({{5, 5, 5}}, 0.0, 0.0, 30.0, 1.0, 10.0);
    EXPECT_NEAR((pose.eye - osg::Vec3d(5, 5, 5)).length(), 10.0 / std::tan(osg::DegreesToRadians(15.0)),
                1e-6);
}

TEST(Framing, keepsEveryPointInsideAndTouchesTheEdges)
{
    const std::vector<osg::Vec3d> points{
        {-50, -20, 0}, {50, 30, 0}, {0, 0, 180}, {200, 400, 90}, {-300, 10, 20}};
    for (const double aspect : {0.5, 1.0, 16.0 / 9.0}) {
        for (const double compass : {0.0, 1.0, -2.5}) {
            const CameraPose pose = frameAll(points, compass, 0.2, 30.0, aspect, 0.0);
            double most = 0.0;
            for (const osg::Vec3d& point : points) {
                const osg::Vec3d at = onPicture(pose, point, aspect);
                EXPECT_LT(std::abs(at.x()), 1.0 + 1e-6);
                EXPECT_LT(std::abs(at.y()), 1.0 + 1e-6);
                most = std::max({most, std::abs(at.x()), std::abs(at.y())});
            }
            EXPECT_NEAR(most, 1.0, 1e-6) << "no nearer camera shows them all";
        }
    }
}

TEST(Framing, looksFromTheDirectionThatIsAskedFor)
{
    const CameraPose pose = frameAll({{0, 0, 0}, {0, 0, 180}}, osg::PI_2, 0.3, 30.0, 1.0, 10.0);
    const osg::Vec3d away = pose.eye - pose.target;
    EXPECT_NEAR(std::atan2(away.y(), away.x()), osg::PI_2, 1e-9);
    EXPECT_NEAR(std::asin(away.z() / away.length()), 0.3, 1e-9);
}

}  // namespace
