#include "apps/kivplayer/window/state/orbitcamera.h"

#include <gtest/gtest.h>

using namespace KivPlayer;

namespace {

void expectNear(const osg::Vec3d& actual, const osg::Vec3d& expected)
{
    EXPECT_LT((actual - expected).length(), 1e-6) << actual.x() << ", " << actual.y() << ", " << actual.z();
}

CameraPose pose(const osg::Vec3d& eye, const osg::Vec3d& target)
{
    return {eye, target, osg::Vec3d(0, 0, 1)};
}

/// Where a point of the scene is in the window, from -1 to 1 both ways.
osg::Vec3d inWindow(const OrbitCamera& camera, const osg::Vec3d& point, const ViewArea& area,
                    const osg::Vec2d& shift = {})
{
    osg::ref_ptr<osg::Camera> view = new osg::Camera;
    camera.project(*view, area, shift);
    const CameraPose pose = camera.pose();
    return point * osg::Matrixd::lookAt(pose.eye, pose.target, pose.up) * view->getProjectionMatrix();
}

}  // namespace

TEST(OrbitCamera, staysWithoutAPointToFollow)
{
    OrbitCamera camera;
    const CameraPose before = camera.pose();
    expectNear(camera.follow(std::nullopt), {});
    expectNear(camera.follow(osg::Vec3d(500, 0, 0)), {});
    expectNear(camera.pose().eye, before.eye);
}

TEST(OrbitCamera, goesHome)
{
    OrbitCamera camera;
    camera.setHome(pose({0, -300, 100}, {0, 0, 90}));
    camera.goHome();
    expectNear(camera.pose().eye, {0, -300, 100});
    EXPECT_NEAR(camera.pose().eye.z(), 100.0, 1e-6);
}

TEST(OrbitCamera, followsByAsMuchAsThePointHasMoved)
{
    OrbitCamera camera;
    const CameraPose before = camera.pose();
    camera.follow(osg::Vec3d(500, 0, 0));
    expectNear(camera.follow(osg::Vec3d(507, 2, 0)), {7, 2, 0});
    expectNear(camera.pose().eye, before.eye + osg::Vec3d(7, 2, 0));
    camera.follow(std::nullopt);
    expectNear(camera.follow(osg::Vec3d(0, 0, 0)), {});
}

TEST(OrbitCamera, comesNearAFigureAndNeverGoesAwayForIt)
{
    OrbitCamera camera;
    camera.setHome(pose({0, -5000, 90}, {0, 0, 90}));
    camera.goHome();
    camera.approach({0, 0, 90}, 180.0);
    const double near = camera.pose().eye.length();
    EXPECT_LT(near, 1000.0);
    EXPECT_GT(near, 180.0);
    camera.approach({0, 0, 90}, 1800.0);
    EXPECT_NEAR(camera.pose().eye.length(), near, 1e-6);
}

TEST(OrbitCamera, putsItsTargetInTheMiddleOfWhatThePanelsLeave)
{
    OrbitCamera camera;
    const ViewArea area{1000, 500, 200, 100};
    const osg::Vec3d seen = inWindow(camera, camera.pose().target, area);
    EXPECT_NEAR(seen.x(), 0.2, 1e-3);
    EXPECT_NEAR(seen.y(), 0.2, 1e-3);
}

TEST(OrbitCamera, shiftsByPixels)
{
    OrbitCamera camera;
    const ViewArea area{1000, 500, 0, 0};
    const osg::Vec3d point = camera.pose().target;
    const osg::Vec3d step = inWindow(camera, point, area) - inWindow(camera, point, area, {1.0, 0.0});
    EXPECT_NEAR(step.x(), 2.0 / 1000.0, 1e-9);
    EXPECT_NEAR(step.y(), 0.0, 1e-9);
}
