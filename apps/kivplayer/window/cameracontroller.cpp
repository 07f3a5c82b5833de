#include "apps/kivplayer/window/cameracontroller.h"

#include <algorithm>
#include <cmath>

#include "KivCharacterization/characterizationmanager.h"
#include "KivRenderState/kivrenderstatemanager.h"

namespace KivPlayer {

using KivCharacterization::CharacterizationManager;
using KivTaskCommand::TaskCommand;

namespace {

/// Joints lie inside the body: what a figure needs around them, as a share of its height.
constexpr double kBodyMargin = 0.10;
constexpr double kNameHeight = 30.0;  // scene units above the head joint

}  // namespace

CameraPose CameraController::homePose(const osg::BoundingBox& box) const
{
    const FramePublisher& publisher = m_context.scene.publisher();
    const Options& options = m_context.options;
    std::vector<osg::Vec3d> shown = publisher.sampledPositions();
    const std::size_t joints = shown.size();
    for (std::size_t i = 0; i < joints; ++i)
        shown.emplace_back(shown[i].x(), shown[i].y(), std::min(0.0, shown[i].z()));
    if (m_context.state.shown[Overlay::Names])
        for (const osg::Vec3d& head : publisher.sampledHeads())
            shown.push_back(head + osg::Vec3d(0, 0, kNameHeight));
    const double height = static_cast<double>(box.zMax() - box.zMin());
    CameraPose pose = frameAll(shown, publisher.facing() + options.view.azimuth, options.view.elevation,
                               OrbitCamera::kFieldOfView, m_context.state.area.aspect(),
                               std::max(kBodyMargin * std::min(height, 200.0), 0.02 * height));
    pose.target = options.cameraTarget.value_or(pose.target);
    pose.eye = options.cameraPosition.value_or(pose.eye);
    return pose;
}

void CameraController::findHome()
{
    if (m_context.session.actors().empty())
        return;
    const osg::BoundingBox box = boxWithGround(m_context.scene.publisher().sampledBox());
    const CameraPose pose = homePose(box);
    m_camera.setHome(pose);
    m_context.scene.stage().setFront(
        std::atan2(pose.eye.y() - pose.target.y(), pose.eye.x() - pose.target.x()));
    m_context.scene.stage().setUp(box);
}

void CameraController::goHome()
{
    findHome();
    m_camera.goHome();
}

void CameraController::sendHome()
{
    findHome();
    m_context.commands.send("camera home", [](CharacterizationManager& manager, TaskCommand& command) {
        return manager.CameraHomePosition(&command);
    });
}

void CameraController::follow(std::optional<unsigned> actor)
{
    const auto& actors = m_context.session.actors();
    const auto found = actor ? actors.find(*actor) : actors.end();
    const std::string id = found != actors.end() ? found->second.id() : std::string();
    m_context.commands.send("follow", [&id](CharacterizationManager& manager, TaskCommand& command) {
        return manager.CameraTrace(&command, !id.empty(), id);
    });
    if (found == actors.end())
        return;
    const KivTaskCommand::SceneGate::Pass pass(m_context.session.gate());
    const osg::BoundingBox box = boxWithGround(found->second.dressed.positions());
    if (box.valid())
        m_camera.approach(box.center(), static_cast<double>(box.zMax() - box.zMin()));
}

void CameraController::followNext()
{
    const auto& actors = m_context.session.actors();
    const std::optional<unsigned> now = followed();
    const auto next = now ? actors.upper_bound(*now) : actors.begin();
    follow(next != actors.end() ? std::optional<unsigned>(next->first) : std::nullopt);
}

void CameraController::updateState()
{
    m_context.state.followed = followed();
}

std::optional<unsigned> CameraController::followed() const
{
    bool on = false;
    std::string id;
    CharacterizationManager::instance()->GetCameraTraceState(on, id);
    for (const auto& [index, actor] : m_context.session.actors())
        if (on && actor.id() == id)
            return index;
    return std::nullopt;
}

void CameraController::apply(osg::Camera& camera, const osg::Vec2d& shift)
{
    std::optional<osg::Vec3d> hips;
    if (const std::optional<unsigned> actor = followed()) {
        const DressedActor& dressed = m_context.session.actors().at(*actor).dressed;
        if (!dressed.joints().empty())
            hips = dressed.positions().front();
    }
    // The camera keeps its height: figures that bob shall not shake the picture.
    if (hips)
        hips->z() = 0.0;
    const osg::Vec3d step = m_camera.follow(hips);
    if (step.length2() > 0.0) {
        auto* state = KivRenderState::KivRenderStateManager::instance();
        state->setCameraTraceMatrix(state->getCameraTraceMatrix() * osg::Matrixd::translate(step));
    }
    m_camera.project(camera, m_context.state.area, shift);
}

}  // namespace KivPlayer
