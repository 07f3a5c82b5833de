#include "apps/kivplayer/window/controller.h"

#include <filesystem>

#include "KivCharacterization/characterizationmanager.h"
#include "KivCommonDef/stickcontact.h"
#include "KivErrorOperator/tavrincommonerrormsg.h"
#include "apps/kivplayer/output/outputtimes.h"
#include "apps/kivplayer/window/startup.h"

namespace KivPlayer {

using KivCharacterization::CharacterizationManager;
using KivTaskCommand::TaskCommand;

namespace {

constexpr double kMessageTime = 5.0;  // seconds
constexpr double kLogInterval = 0.5;

std::string fileName(const std::string& path)
{
    return std::filesystem::path(path).filename().string();
}

/// What an action does to playback, if anything.
void performOn(Action action, Transport& transport)
{
    switch (action) {
        case Action::TogglePlay:
            return transport.isPlaying() ? transport.pause() : transport.play();
        case Action::StepBack:
            return transport.step(-1);
        case Action::StepForward:
            return transport.step(1);
        case Action::FirstFrame:
            return transport.setTime(0.0);
        case Action::LastFrame:
            transport.setTime(transport.duration());
            return transport.pause();
        case Action::Slower:
            return transport.slower();
        case Action::Faster:
            return transport.faster();
        case Action::ToggleLoop:
            return transport.setLooping(!transport.isLooping());
        default:
            return;
    }
}

/// One function out of several, to visit a request with.
template <typename... Cases>
struct Overloaded : Cases...
{
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

}  // namespace

Controller::Controller(const PlayerContext& context, QualityGovernor& quality)
    : m_context(context),
      m_camera(context),
      m_actors(context),
      m_props(context),
      m_overlays(context, m_props, quality),
      m_report(context)
{}

void Controller::start()
{
    m_actors.loadAll();
}

void Controller::apply(const Request& request)
{
    std::visit(Overloaded{
                   [this](Action action) { perform(action); },
                   [this](const ToggleOverlay& wanted) { m_overlays.toggle(wanted.overlay); },
                   [this](const SetTime& wanted) { m_context.state.transport.setTime(wanted.seconds); },
                   [this](const SetSpeed& wanted) { m_context.state.transport.setSpeed(wanted.factor); },
                   [this](const LoadFile& wanted) { m_actors.load(wanted.file); },
                   [this](const ReplaceActor& wanted) { m_actors.replace(wanted.actor, wanted.file); },
                   [this](const RemoveActor& wanted) { remove(wanted.actor); },
                   [this](const RenameActor& wanted) { m_actors.rename(wanted.actor, wanted.name); },
                   [this](const ShowActor& wanted) { m_actors.show(wanted.actor, wanted.shown); },
                   [this](const OffsetActor& wanted) { m_actors.offset(wanted.actor, wanted.seconds); },
                   [this](const FollowActor& wanted) { m_camera.follow(wanted.actor); },
                   [this](const ShowDragger& wanted) { m_props.showDragger(wanted.prop, wanted.shown); },
                   [this](const ShowContactDragger& wanted) {
                       m_props.showContactDragger(wanted.prop, wanted.shown);
                   },
                   [this](const PoseProp& wanted) { m_props.pose(wanted); },
                   [this](const PaintContact& wanted) { paintContact(wanted); },
               },
               request);
}

void Controller::perform(Action action)
{
    switch (action) {
        case Action::CameraHome:
            return m_camera.sendHome();
        case Action::FollowNext:
            return m_camera.followNext();
        case Action::Screenshot:
            return m_screenshot.begin(
                defaultSupersampling(m_context.state.area.width(), m_context.state.area.height()));
        case Action::Quit:
            m_quit = true;
            return;
        default:
            return performOn(action, m_context.state.transport);
    }
}

void Controller::paintContact(const PaintContact& wanted)
{
    const float red = wanted.colour.x();
    const float green = wanted.colour.y();
    const float blue = wanted.colour.z();
    const KivCommonDef::KIV_STICKCONTACT_COLOR paint{{red, green, blue}, red, green, blue};
    m_context.commands.send("contact colour of " + wanted.joint,
                            [&](CharacterizationManager& manager, TaskCommand& command) {
                                return manager.ChangeActorStactColorCommand(wanted.joint, paint, &command);
                            });
}

void Controller::remove(unsigned actor)
{
    m_actors.remove(actor);
    takeActors();
}

void Controller::takeActors()
{
    double frameTime = 0.0;
    {
        const KivTaskCommand::SceneGate::Pass pass(m_context.session.gate());
        m_context.scene.takeActors();
        m_props.takeActors();
        m_actors.applyVisibility();
        for (const auto& [index, actor] : m_context.session.actors())
            if (frameTime <= 0.0)
                frameTime = actor.document.frameTime;
    }
    m_actors.updateState();
    m_overlays.applyToLabels();
    Transport& transport = m_context.state.transport;
    transport.setMotion(m_context.scene.publisher().duration(), frameTime);
    const Options& options = m_context.options;
    if (m_starting && (options.time || options.frame))
        transport.setTime(stillTime(options, m_context.session.actors()));
    // Somebody who has looked around already is left where they are.
    if (m_starting || m_context.session.actors().size() == 1)
        m_camera.goHome();
}

void Controller::advance(double now, double passed)
{
    m_now = now;
    ActorLoader& loader = m_context.scene.loader();
    m_actors.reloadChangedFiles(now);
    if (loader.advance())
        takeActors();
    if (const std::string failed = loader.takeFailed(); !failed.empty())
        say(fileName(failed) + ": not loaded; the log says why");
    if (m_starting && !loader.isBusy())
        endStarting();
    for (const std::string& what : m_context.commands.takeAnswers())
        say("Could not be done: " + what);
    if (!m_starting && !m_screenshot.isBusy())
        m_context.state.transport.advance(passed);
    updateState();
}

void Controller::endStarting()
{
    m_starting = false;
    const Options& options = m_context.options;
    if (!m_context.session.actors().empty())
        startUp().reached("actors");
    m_context.console.note("start-up: " + startUp().text());
    if (options.follow)
        m_camera.follow(static_cast<unsigned>(*options.follow));
    if (options.shown[Overlay::PropDraggers])
        m_overlays.toggle(Overlay::PropDraggers);
    m_report.write();
}

void Controller::updateState()
{
    WindowState& state = m_context.state;
    const ActorLoader& loader = m_context.scene.loader();
    state.loading = {m_starting || loader.isBusy(), loader.isBusy() ? loader.file() : std::string(),
                     loader.percent()};
    if (loader.isBusy())
        state.message = "Loading " + fileName(loader.file()) + ", " + std::to_string(loader.percent()) + " %";
    else
        state.message = m_now - m_saidAt < kMessageTime ? m_said : std::string();
    m_camera.updateState();
    m_props.updateState();
    m_overlays.updateState();
    if (state.shown[Overlay::FitReport])
        m_report.updateState();
    readLog();
}

void Controller::readLog()
{
    if (m_now - m_logRead < kLogInterval)
        return;
    m_logRead = m_now;
    std::vector<LogLine>& log = m_context.state.log;
    log.clear();
    for (const std::string& line : KivErrorOperator::TavrinCommonErrorMsg::instance()->history())
        log.push_back({line, false});
    for (const std::string& line : m_context.console.errorLines())
        log.push_back({line, true});
}

void Controller::takePictureFrame(const osg::Image& frame)
{
    const auto [file, problem] = m_screenshot.take(frame);
    if (file.empty())
        return;
    say(problem.empty() ? "Written: " + file : file + ": " + problem);
    if (!problem.empty())
        m_context.console.error({file, 0, 0, problem});
}

void Controller::say(const std::string& text)
{
    m_said = text;
    m_saidAt = m_now;
}

}  // namespace KivPlayer
