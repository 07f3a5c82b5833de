#include "apps/kivplayer/window/state/orbitcamera.h"

#include <osg/Math>

#include <algorithm>
#include <cmath>

namespace KivPlayer {

namespace {

constexpr double kNearest = 15.0;  // scene units

/// Keys belong to the window's own table.
class KeylessOrbit : public osgGA::OrbitManipulator
{
public:
    KeylessOrbit() : osgGA::OrbitManipulator(PROCESS_MOUSE_WHEEL)
    {
        setAutoComputeHomePosition(false);
        setVerticalAxisFixed(true);
        setAllowThrow(false);
        setMinimumDistance(kNearest, false);
        setWheelZoomFactor(-0.12);
    }

    bool handleKeyDown(const osgGA::GUIEventAdapter&, osgGA::GUIActionAdapter&) override { return false; }
};

}  // namespace

OrbitCamera::OrbitCamera() : m_spOrbit(new KeylessOrbit)
{
    setHome({osg::Vec3d(250, -600, 200), osg::Vec3d(0, 0, 90), osg::Vec3d(0, 0, 1)});
    goHome();
}

void OrbitCamera::setHome(const CameraPose& pose)
{
    m_spOrbit->setHomePosition(pose.eye, pose.target, pose.up);
}

void OrbitCamera::goHome()
{
    m_spOrbit->home(0.0);
}

void OrbitCamera::project(osg::Camera& camera, const ViewArea& area, const osg::Vec2d& shift) const
{
    const double width = std::max(1, area.windowWidth);
    const double height = std::max(1, area.windowHeight);
    const double across = area.width() / width;
    const double upright = area.height() / height;
    camera.setProjectionMatrix(osg::Matrixd::perspective(kFieldOfView, area.aspect(), 1.0, 10000.0) *
                               osg::Matrixd::scale(across, upright, 1.0) *
                               osg::Matrixd::translate(1.0 - across - 2.0 * shift.x() / width,
                                                       1.0 - upright - 2.0 * shift.y() / height, 0.0));
}

void OrbitCamera::approach(const osg::Vec3d& point, double height)
{
    const double enough = 0.75 * height / std::tan(0.5 * osg::DegreesToRadians(kFieldOfView));
    m_spOrbit->setCenter(point);
    m_spOrbit->setDistance(std::min(m_spOrbit->getDistance(), std::max(enough, kNearest)));
    m_followed.reset();
}

osg::Vec3d OrbitCamera::follow(const std::optional<osg::Vec3d>& point)
{
    const osg::Vec3d step = point && m_followed ? *point - *m_followed : osg::Vec3d();
    if (step.length2() > 0.0)
        m_spOrbit->setCenter(m_spOrbit->getCenter() + step);
    m_followed = point;
    return step;
}

CameraPose OrbitCamera::pose() const
{
    CameraPose pose;
    m_spOrbit->getTransformation(pose.eye, pose.target, pose.up);
    return pose;
}

}  // namespace KivPlayer
