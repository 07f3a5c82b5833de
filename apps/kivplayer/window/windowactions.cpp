#include <algorithm>
#include <cmath>
#include <exception>
#include <filesystem>

#include "KivCharacterization/characterizationmanager.h"
#include "KivCommonDef/stickcontact.h"
#include "KivRenderState/kivrenderstatemanager.h"
#include "apps/kivplayer/output/picturefile.h"
#include "apps/kivplayer/report/fitreport.h"
#include "apps/kivplayer/report/reportfile.h"
#include "apps/kivplayer/window/playerwindow.h"

namespace KivPlayer {

using KivCharacterization::CharacterizationManager;
using KivRenderState::KivRenderStateManager;
using KivTaskCommand::TaskCommand;

namespace {

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
        case Action::Loop:
            transport.setLooping(!transport.isLooping());
            break;
        case Action::CameraHome:
            findHome();
            m_commands.send("camera home", [](CharacterizationManager& manager, TaskCommand& command) {
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
            m_scene.publisher().publishContacts(m_shown.contacts);
            break;
        case Action::Skeleton:
            m_shown.skeleton = !m_shown.skeleton;
            m_scene.stage().showSkeleton(m_shown.skeleton);
            break;
        case Action::Shadows:
            m_detail.setShadows(!m_detail.shadows());
            break;
        case Action::Grid:
            m_shown.grid = !m_shown.grid;
            m_scene.stage().showGrid(m_shown.grid);
            break;
        case Action::PropsDraggers:
            toggleDraggers();
            break;
        case Action::ContactDraggers:
            toggleContactDraggers();
            break;
        case Action::Screenshot:
            m_picture.begin(
                defaultSupersampling(area().windowWidth - area().left, area().windowHeight - area().bottom));
            break;
        case Action::Panels:
            m_spInterface->focusNextPanel({kSidebarWindow, kBarWindow});
            break;
        case Action::Fit:
            m_shown.fit = !m_shown.fit;
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

void PlayerWindow::toggleContactDraggers()
{
    m_shown.contactDraggers = !m_shown.contactDraggers;
    for (const WatchedProps& one : props.all())
        showContactDragger(one, m_shown.contactDraggers);
}

void PlayerWindow::showDragger(const WatchedProps& one, bool shown)
{
    m_commands.send("dragger of " + one.name, [&](CharacterizationManager& manager, TaskCommand& command) {
        return manager.ShowPropsDragger(&command, static_cast<int>(one.actor), one.name, shown);
    });
}

void PlayerWindow::showContactDragger(const WatchedProps& one, bool shown)
{
    m_commands.send(
        "contact point of " + one.name, [&](CharacterizationManager& manager, TaskCommand& command) {
            return manager.ShowContactPointDragger(&command, static_cast<int>(one.actor), one.name, shown);
        });
}

void PlayerWindow::place(const WatchedProps& one)
{
    const osg::Matrixd matrix = one.matrix();
    m_commands.send("pose of " + one.name, [&](CharacterizationManager& manager, TaskCommand& command) {
        return manager.SetPropsGemoetryMat(&command, static_cast<int>(one.actor), one.name, matrix.ptr());
    });
}

void PlayerWindow::paintContact(const std::string& joint, const float* colour)
{
    const KivCommonDef::KIV_STICKCONTACT_COLOR paint{
        {colour[0], colour[1], colour[2]}, colour[0], colour[1], colour[2]};
    m_commands.send("contact colour of " + joint,
                    [&](CharacterizationManager& manager, TaskCommand& command) {
                        return manager.ChangeActorStactColorCommand(joint, paint, &command);
                    });
}

const FitReport& PlayerWindow::fitReport()
{
    if (m_reportIsOld) {
        const KivTaskCommand::SceneGate::Pass pass(m_session.gate());
        m_report = fitReportOf(actors(), m_session.avatar());
        m_reportIsOld = false;
    }
    return m_report;
}

void PlayerWindow::writeReport()
{
    if (m_options.report.empty())
        return;
    const KivTaskCommand::SceneGate::Pass pass(m_session.gate());
    KivPlayer::writeReport(m_options.report, fitReportOf(actors(), m_session.avatar(), m_console.errors()),
                           m_console);
}

void PlayerWindow::takePicture()
{
    const osg::ref_ptr<osg::Image> frame = m_spInterface->takePicture();
    const osg::ref_ptr<osg::Image> picture = frame && m_picture.isBusy() ? m_picture.take(*frame) : nullptr;
    if (picture)
        savePicture(*picture);
}

void PlayerWindow::savePicture(const osg::Image& picture)
{
    const std::string name = unusedPictureName();
    const std::string problem = writePicture(picture, name);
    if (problem.empty()) {
        m_pictures.push_back(name);
        say("Written: " + name);
    } else {
        m_console.error({name, 0, 0, problem});
        say(name + ": " + problem);
    }
}

}  // namespace KivPlayer
