#include <algorithm>
#include <cmath>
#include <exception>
#include <filesystem>

#include "KivCharacterization/characterizationmanager.h"
#include "KivCommonDef/stickcontact.h"
#include "KivRenderState/kivrenderstatemanager.h"
#include "avatarfile.h"
#include "fitreport.h"
#include "framing.h"
#include "picturefile.h"
#include "window/playerwindow.h"

namespace KivPlayer {

using KivCharacterization::CharacterizationManager;
using KivRenderState::KivRenderStateManager;
using KivTaskCommand::TaskCommand;

namespace {

/// Joints lie inside the body: what a figure needs around them, as a share of its height.
constexpr double kFlesh = 0.10;
constexpr double kLabelHeight = 30.0;  // scene units above the head joint

osg::BoundingBox boxAround(const std::vector<osg::Vec3d>& places)
{
    osg::BoundingBox box;
    for (const osg::Vec3d& place : places) {
        box.expandBy(place);
        box.expandBy(osg::Vec3d(place.x(), place.y(), std::min(0.0, place.z())));
    }
    return box;
}

std::string unusedPictureName()
{
    std::error_code problem;
    for (int i = 1;; ++i) {
        const std::string digits = std::to_string(i);
        const std::string name =
            "kivplayer-" + std::string(4 - std::min<std::size_t>(4, digits.size()), '0') + digits + ".png";
        if (!std::filesystem::exists(name, problem))
            return name;
    }
}

}  // namespace

void PlayerWindow::perform(Action action)
{
    switch (action) {
        case Action::TogglePlay:
            transport.isPlaying() ? transport.pause() : transport.play();
            break;
        case Action::StepBack:
            transport.step(-1);
            break;
        case Action::StepForward:
            transport.step(1);
            break;
        case Action::FirstFrame:
            transport.setTime(0.0);
            break;
        case Action::LastFrame:
            transport.setTime(transport.duration());
            transport.pause();
            break;
        case Action::Slower:
            transport.slower();
            break;
        case Action::Faster:
            transport.faster();
            break;
        case Action::CameraHome:
            send("camera home", [](CharacterizationManager& manager, TaskCommand& command) {
                return manager.CameraHomePosition(&command);
            });
            break;
        case Action::Follow:
            followNext();
            break;
        case Action::Names:
            toggleNames();
            break;
        case Action::CentreOfMass:
            m_shown.centreOfMass = !m_shown.centreOfMass;
            KivRenderStateManager::instance()->setCenterOfMassShow(m_shown.centreOfMass);
            break;
        case Action::Contacts:
            m_shown.contacts = !m_shown.contacts;
            m_publisher.publishContacts(m_shown.contacts);
            break;
        case Action::Grid:
            m_shown.grid = !m_shown.grid;
            m_stage.showGrid(m_shown.grid);
            break;
        case Action::PropsDraggers:
            toggleDraggers();
            break;
        case Action::Screenshot:
            m_spInterface->askForPicture();
            break;
        case Action::Help:
            m_shown.help = !m_shown.help;
            break;
        case Action::Statistics:
            m_shown.statistics = !m_shown.statistics;
            break;
        case Action::Quit:
            m_quit = true;
            break;
    }
}

void PlayerWindow::send(const std::string& what, const Session::Attach& attach,
                        const std::function<void(bool)>& then)
{
    m_pending.push_back({m_session.submit(attach), what, then});
}

void PlayerWindow::takeAnswers()
{
    std::vector<Pending> answered;
    for (Pending& one : m_pending)
        if (one.answer.wait_for(std::chrono::seconds(0)) == std::future_status::ready)
            answered.push_back(std::move(one));
    m_pending.erase(std::remove_if(m_pending.begin(), m_pending.end(),
                                   [](const Pending& one) { return !one.answer.valid(); }),
                    m_pending.end());
    for (Pending& one : answered) {
        bool done = false;
        try {
            done = one.answer.get();
        } catch (const std::exception& problem) {
            m_console.error({"", 0, 0, one.what + ": " + problem.what()});
        }
        if (!done)
            say("Could not be done: " + one.what);
        if (one.then)
            one.then(done);
    }
}

void PlayerWindow::takeActors()
{
    const KivTaskCommand::SceneGate::Pass pass(m_session.gate());
    m_publisher.setActors(actors());
    props.setActors(actors());
    m_reportIsOld = true;
    double frameTime = 0.0;
    for (const auto& [index, actor] : actors()) {
        actor.dressed.root().setNodeMask(isVisible(index) ? ~0u : 0u);
        if (frameTime <= 0.0)
            frameTime = actor.document.frameTime;
    }
    if (!m_names)
        m_shown.names = actors().size() > 1;
    transport.setMotion(m_publisher.duration(), frameTime);
    if (m_starting && m_options.time)
        transport.setTime(*m_options.time);
    if (m_starting && m_options.frame)
        transport.setTime(static_cast<double>(*m_options.frame) * frameTime);
    findHome();
    if (m_names)
        m_shown.names = *m_names;
    for (const auto& [index, actor] : actors())
        if (osg::Switch* label = m_names ? actor.dressed.labelSwitch() : nullptr)
            *m_names ? label->setAllChildrenOn() : label->setAllChildrenOff();
}

void PlayerWindow::findHome()
{
    if (actors().empty())
        return;
    std::vector<osg::Vec3d> shown = m_publisher.sampledPlaces();
    const osg::BoundingBox box = boxAround(shown);
    for (const osg::Vec3d& place : m_publisher.sampledPlaces())
        shown.emplace_back(place.x(), place.y(), std::min(0.0, place.z()));
    if (m_shown.names)
        for (const osg::Vec3d& head : m_publisher.sampledHeads())
            shown.push_back(head + osg::Vec3d(0, 0, kLabelHeight));
    const double height = static_cast<double>(box.zMax() - box.zMin());
    const double compass = m_publisher.facing() + m_options.view.azimuth;
    CameraPose pose = frameAll(shown, compass, m_options.view.elevation, OrbitCamera::kFieldOfView,
                               area().aspect(), std::max(kFlesh * std::min(height, 200.0), 0.02 * height));
    if (m_options.cameraTarget)
        pose.target = *m_options.cameraTarget;
    if (m_options.cameraPosition)
        pose.eye = *m_options.cameraPosition;
    m_camera.setHome(pose);
    m_stage.setFront(std::atan2(pose.eye.y() - pose.target.y(), pose.eye.x() - pose.target.x()));
    m_stage.setUp(box);
    // Somebody who has looked around already is left where they are.
    if (m_starting)
        m_camera.goHome();
}

void PlayerWindow::load(const std::string& file)
{
    const unsigned next = actors().empty() ? 0 : actors().rbegin()->first + 1;
    m_loader.load(std::max(next, m_nextActor), file, std::filesystem::path(file).stem().string());
    m_nextActor = std::max(next, m_nextActor) + 1;
}

void PlayerWindow::reload(unsigned actor)
{
    const auto found = actors().find(actor);
    if (found != actors().end())
        m_loader.load(actor, found->second.file, found->second.name);
}

void PlayerWindow::remove(unsigned actor)
{
    m_session.forget(actor);
    m_hidden.erase(actor);
    takeActors();
    send("remove", [actor](CharacterizationManager& manager, TaskCommand& command) {
        return manager.ClearOrRemoveActor(&command, 1, actor);
    });
}

void PlayerWindow::rename(unsigned actor, const std::string& name)
{
    send(
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

void PlayerWindow::follow(std::optional<unsigned> actor)
{
    const auto found = actor ? actors().find(*actor) : actors().end();
    const std::string id = found != actors().end() ? found->second.id() : std::string();
    send("follow", [&id](CharacterizationManager& manager, TaskCommand& command) {
        return manager.CameraTrace(&command, !id.empty(), id);
    });
    if (found == actors().end())
        return;
    const KivTaskCommand::SceneGate::Pass pass(m_session.gate());
    const std::vector<osg::Vec3d> places = found->second.dressed.positions();
    const osg::BoundingBox box = boxAround(places);
    if (box.valid())
        m_camera.approach(box.center(), static_cast<double>(box.zMax() - box.zMin()));
}

void PlayerWindow::followNext()
{
    const std::optional<unsigned> now = followed();
    const auto next = now ? actors().upper_bound(*now) : actors().begin();
    follow(next != actors().end() ? std::optional<unsigned>(next->first) : std::nullopt);
}

void PlayerWindow::toggleNames()
{
    m_shown.names = !m_shown.names;
    m_names = m_shown.names;
    m_session.showNames(m_shown.names);
}

void PlayerWindow::toggleDraggers()
{
    m_shown.draggers = !m_shown.draggers;
    for (const WatchedProps& one : props.all())
        showDragger(one, m_shown.draggers);
}

void PlayerWindow::showDragger(const WatchedProps& one, bool shown)
{
    send("dragger of " + one.name, [&](CharacterizationManager& manager, TaskCommand& command) {
        return manager.ShowPropsDragger(&command, static_cast<int>(one.actor), one.name, shown);
    });
}

void PlayerWindow::showContactDragger(const WatchedProps& one, bool shown)
{
    send("contact point of " + one.name, [&](CharacterizationManager& manager, TaskCommand& command) {
        return manager.ShowContactPointDragger(&command, static_cast<int>(one.actor), one.name, shown);
    });
}

void PlayerWindow::place(const WatchedProps& one)
{
    const osg::Matrixd matrix = one.matrix();
    send("pose of " + one.name, [&](CharacterizationManager& manager, TaskCommand& command) {
        return manager.SetPropsGemoetryMat(&command, static_cast<int>(one.actor), one.name, matrix.ptr());
    });
}

void PlayerWindow::paintContact(const std::string& joint, const float* colour)
{
    const KivCommonDef::KIV_STICKCONTACT_COLOR paint{
        {colour[0], colour[1], colour[2]}, colour[0], colour[1], colour[2]};
    send("contact colour of " + joint, [&](CharacterizationManager& manager, TaskCommand& command) {
        return manager.ChangeActorStactColorCommand(joint, paint, &command);
    });
}

const nlohmann::ordered_json& PlayerWindow::fitReport()
{
    if (m_reportIsOld) {
        const KivTaskCommand::SceneGate::Pass pass(m_session.gate());
        m_report = KivPlayer::fitReport(actors(), AvatarFile::read(m_session.avatarPath()), {});
        m_reportIsOld = false;
    }
    return m_report;
}

void PlayerWindow::savePicture()
{
    const osg::ref_ptr<osg::Image> picture = m_spInterface->takePicture();
    if (!picture)
        return;
    const std::string name = unusedPictureName();
    const std::string problem = writePicture(*picture, name);
    if (problem.empty()) {
        m_pictures.push_back(name);
        say("Written: " + name);
    } else {
        m_console.error({name, 0, 0, problem});
        say(name + ": " + problem);
    }
}

}  // namespace KivPlayer
