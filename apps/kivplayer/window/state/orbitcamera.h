#pragma once

#include <osg/Camera>
#include <osg/Vec2d>
#include <osg/Vec3d>
#include <osg/ref_ptr>
#include <osgGA/OrbitManipulator>

#include <optional>

#include "apps/kivplayer/stage/framing.h"
#include "apps/kivplayer/window/state/viewarea.h"

namespace KivPlayer {

/// The camera of the window: orbits about a point with the z axis upright, knows its home, and follows a
/// moving point. Between frames.
class OrbitCamera
{
public:
    static constexpr double kFieldOfView = 30.0;  ///< degrees, vertical, of the free area

    OrbitCamera();

    osgGA::CameraManipulator* manipulator() const { return m_spOrbit; }

    void setHome(const CameraPose& pose);
    void goHome();

    /// Projects so that the middle of the picture is the middle of the free area, while the scene is drawn
    /// behind the panels, too.
    /// @param shift how far the camera is moved sideways, pixels to the right and upwards.
    void project(osg::Camera& camera, const ViewArea& area, const osg::Vec2d& shift = {}) const;

    /// Turns towards a point and comes near enough for a figure of that height to be seen well.
    void approach(const osg::Vec3d& point, double height);

    /// Moves by what a point has moved since the last call; the first call after none only remembers it.
    /// @return the step that was taken.
    osg::Vec3d follow(const std::optional<osg::Vec3d>& point);

    CameraPose pose() const;

private:
    osg::ref_ptr<osgGA::OrbitManipulator> m_spOrbit;
    std::optional<osg::Vec3d> m_followed;
};

}  // namespace KivPlayer
