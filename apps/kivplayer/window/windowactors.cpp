#include <algorithm>
#include <cmath>
#include <filesystem>

#include "KivCharacterization/characterizationmanager.h"
#include "apps/kivplayer/output/outputtimes.h"
#include "apps/kivplayer/stage/framing.h"
#include "apps/kivplayer/window/playerwindow.h"

namespace KivPlayer {

using KivCharacterization::CharacterizationManager;
using KivTaskCommand::TaskCommand;

namespace {

/// Joints lie inside the body: what a figure needs around them, as a share of its height.
constexpr double kFlesh = 0.10;
constexpr double kLabelHeight = 30.0;  // scene units above the head joint

std::string stemOf(const std::string& file)
{
    return std::filesystem::path(file).stem().string();
}

}  // namespace

void PlayerWindow::loadMotions()
{
    m_nextActor = static_cast<unsigned>(m_options.motions.size());
    for (const auto& [actor, seconds] : m_options.offsets)
        m_session.setOffset(actor, seconds);
    for (std::size_t i = 0; i < m_options.motions.size(); ++i)
        m_scene.loader().load(static_cast<unsigned>(i), m_options.motions[i],
                              i < m_options.names.size() ? m_options.names[i] : stemOf(m_options.motions[i]));
}

void PlayerWindow::takeDrops()
{
    if (m_spNative)
        for (const std::string& file : m_spNative->droppedFiles())
            load(file);
}

void PlayerWindow::takeChangedFiles()
{
    if (m_scene.loader().isBusy())
        return;
    for (const unsigned actor : m_watch.changed(actors(), now()))
        replace(actor, actors().at(actor).file);
}

void PlayerWindow::takeActors()
{
    const KivTaskCommand::SceneGate::Pass pass(m_session.gate());
    m_scene.takeActors();
    props.setActors(actors());
    m_reportIsOld = true;
    double frameTime = 0.0;
    for (const auto& [index, actor] : actors()) {
        actor.dressed.root().setNodeMask(isVisible(index) ? ~0u : 0u);
        if (frameTime <= 0.0)
            frameTime = actor.document.frameTime;
    }
    showLabels();
    transport.setMotion(m_scene.publisher().duration(), frameTime);
    if (m_starting && (m_options.time || m_options.frame))
        transport.setTime(stillTime(m_options, actors()));
    // Somebody who has looked around already is left where they are.
    if (m_starting || actors().size() == 1) {
        findHome();
        m_camera.goHome();
    }
}

void PlayerWindow::showLabels()
{
    m_shown.names = m_names.value_or(actors().size() > 1);
    for (const auto& [index, actor] : actors())
        if (osg::Switch* label = m_names ? actor.dressed.labelSwitch() : nullptr)
            *m_names ? label->setAllChildrenOn() : label->setAllChildrenOff();
}

void PlayerWindow::findHome()
{
    if (actors().empty())
        return;
    std::vector<osg::Vec3d> shown = m_scene.publisher().sampledPositions();
    const std::size_t joints = shown.size();
    for (std::size_t i = 0; i < joints; ++i)
        shown.emplace_back(shown[i].x(), shown[i].y(), std::min(0.0, shown[i].z()));
    if (m_shown.names)
        for (const osg::Vec3d& head : m_scene.publisher().sampledHeads())
            shown.push_back(head + osg::Vec3d(0, 0, kLabelHeight));
    const osg::BoundingBox box = boxWithGround(m_scene.publisher().sampledBox());
    const double height = static_cast<double>(box.zMax() - box.zMin());
    const double compass = m_scene.publisher().facing() + m_options.view.azimuth;
    CameraPose pose = frameAll(shown, compass, m_options.view.elevation, OrbitCamera::kFieldOfView,
                               area().aspect(), std::max(kFlesh * std::min(height, 200.0), 0.02 * height));
    if (m_options.cameraTarget)
        pose.target = *m_options.cameraTarget;
    if (m_options.cameraPosition)
        pose.eye = *m_options.cameraPosition;
    m_camera.setHome(pose);
    m_scene.stage().setFront(std::atan2(pose.eye.y() - pose.target.y(), pose.eye.x() - pose.target.x()));
    m_scene.stage().setUp(box);
}

void PlayerWindow::load(const std::string& file)
{
    const unsigned next = actors().empty() ? 0 : actors().rbegin()->first + 1;
    m_scene.loader().load(std::max(next, m_nextActor), file, stemOf(file));
    m_nextActor = std::max(next, m_nextActor) + 1;
}

void PlayerWindow::replace(unsigned actor, const std::string& file)
{
    const auto found = actors().find(actor);
    if (found == actors().end())
        return;
    const LoadedActor& old = found->second;
    // A name that came from the old file goes with it.
    m_scene.loader().load(actor, file, old.name == stemOf(old.file) ? stemOf(file) : old.name);
}

void PlayerWindow::remove(unsigned actor)
{
    m_session.forget(actor);
    m_hidden.erase(actor);
    takeActors();
    m_commands.send("remove", [actor](CharacterizationManager& manager, TaskCommand& command) {
        return manager.ClearOrRemoveActor(&command, 1, actor);
    });
}

void PlayerWindow::rename(unsigned actor, const std::string& name)
{
    m_commands.send(
        "rename",
        [actor, &name](CharacterizationManager& manager, TaskCommand& command) {
            return manager.createChangeActorNameCommand(actor, name, &command);
        },
        [this, actor, name](bool done) {
            if (done)
                m_session.noteName(actor, name);
            m_reportIsOld = true;
        });
}

void PlayerWindow::setVisible(unsigned actor, bool visible)
{
    if (visible)
        m_hidden.erase(actor);
    else
        m_hidden.insert(actor);
    const auto found = actors().find(actor);
    const KivTaskCommand::SceneGate::Pass pass(m_session.gate());
    if (found != actors().end())
        found->second.dressed.root().setNodeMask(visible ? ~0u : 0u);
}

void PlayerWindow::setOffset(unsigned actor, double seconds)
{
    if (!m_session.setOffset(actor, seconds))
        return;
    m_scene.publisher().setActors(actors());
    transport.setMotion(m_scene.publisher().duration(), transport.frameTime());
}

void PlayerWindow::follow(std::optional<unsigned> actor)
{
    const auto found = actor ? actors().find(*actor) : actors().end();
    const std::string id = found != actors().end() ? found->second.id() : std::string();
    m_commands.send("follow", [&id](CharacterizationManager& manager, TaskCommand& command) {
        return manager.CameraTrace(&command, !id.empty(), id);
    });
    if (found == actors().end())
        return;
    const KivTaskCommand::SceneGate::Pass pass(m_session.gate());
    const std::vector<osg::Vec3d> places = found->second.dressed.positions();
    const osg::BoundingBox box = boxWithGround(places);
    if (box.valid())
        m_camera.approach(box.center(), static_cast<double>(box.zMax() - box.zMin()));
}

}  // namespace KivPlayer
