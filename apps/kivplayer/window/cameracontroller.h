#pragma once

#include <osg/Vec2d>

#include <optional>

#include "apps/kivplayer/window/playercontext.h"
#include "apps/kivplayer/window/state/orbitcamera.h"

namespace KivPlayer {

/// Where the window looks from: home, and with the actor that it follows.
class CameraController
{
public:
    explicit CameraController(const PlayerContext& context) : m_context(context) {}

    osgGA::CameraManipulator* manipulator() const { return m_camera.manipulator(); }
    CameraPose pose() const { return m_camera.pose(); }

    /// Finds where the whole motion is in view.
    void findHome();
    /// Finds it and goes there at once.
    void goHome();
    /// Finds it and sends the command.
    void sendHome();

    void follow(std::optional<unsigned> actor);
    /// The next actor in their order; after the last one nobody.
    void followNext();
    /// Notes who is followed, for the panels.
    void updateState();

    /// Moves with whom it follows, and projects. The gate closed.
    /// @param shift pixels to the right and upwards.
    void apply(osg::Camera& camera, const osg::Vec2d& shift);

private:
    std::optional<unsigned> followed() const;
    CameraPose homePose(const osg::BoundingBox& box) const;

    PlayerContext m_context;
    OrbitCamera m_camera;
};

}  // namespace KivPlayer
