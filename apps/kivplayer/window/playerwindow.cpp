#include "apps/kivplayer/window/playerwindow.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <thread>
#include <utility>

#include "KivCharacterization/characterizationmanager.h"
#include "KivErrorOperator/tavrincommonerrormsg.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "KivRenderState/kivrenderstatemanager.h"
#include "apps/kivplayer/window/startup.h"

namespace KivPlayer {

using KivCharacterization::CharacterizationManager;
using KivMemoryShare::SceneCfgShare;
using KivRenderState::KivRenderStateManager;

namespace {

/// A display that does not hold frames back shall not keep a whole processor busy.
constexpr double kMinFrame = 1.0 / 120.0;
constexpr double kMaxStep = 1.0;  // seconds of playback that one frame may take

}  // namespace

PlayerWindow::PlayerWindow(const Options& options, Session& session, Console& console)
    : m_options(options),
      m_session(session),
      m_console(console),
      m_commands(session, console),
      m_scene(session, options.shown.contacts),
      m_spInterface(std::make_unique<InterfaceLayer>(session.fontPath())),
      m_window(m_scene.stage().root(), m_camera.manipulator()),
      m_spNative(NativeWindow::of(m_window.context())),
      m_detail(m_window.drawsInSoftware()),
      m_watch(options.watch),
      m_stateFile(options.stateFile)
{
    startUp().reached("window");
    m_shown.contacts = options.shown.contacts;
    m_shown.centreOfMass = options.shown.centreOfMass;
    m_shown.grid = options.shown.grid;
    m_shown.skeleton = options.shown.skeleton;
    m_names = options.shown.names;
    m_scene.stage().showGrid(m_shown.grid);
    m_scene.stage().showSkeleton(m_shown.skeleton);
    KivRenderStateManager::instance()->setCenterOfMassShow(m_shown.centreOfMass);
    CharacterizationManager::instance()->RegistPropsPropertyChangeNotify(&props);
    SceneCfgShare::instance()->setCompositeViewer(&m_window.viewer());
    registerKeys();
    m_spInterface->setPanels(kSidebarWidth, kBarHeight);
    m_spInterface->attach(m_window.view(), *m_scene.stage().root());
    m_scene.drawWith(m_window.camera());
    loadMotions();
}

PlayerWindow::~PlayerWindow()
{
    CharacterizationManager::instance()->UnRegistPropsPropertyChangeNotify(&props);
    SceneCfgShare::instance()->setCompositeViewer(nullptr);
    m_window.context().makeCurrent();
    m_spInterface.reset();
}

double PlayerWindow::now() const
{
    return std::chrono::duration<double>(Clock::now() - m_start).count();
}

FreeArea PlayerWindow::area() const
{
    return {m_window.width(), m_window.height(), kSidebarWidth, kBarHeight};
}

void PlayerWindow::run()
{
    double last = now();
    while (!m_quit && !m_window.viewer().done()) {
        const double began = now();
        betweenFrames(began - last);
        last = began;
        const double drawing = now();
        frame();
        const double drawn = now() - drawing;
        m_pace.note(drawn, drawing - began);
        if (m_pace.times().frames == 1)
            startUp().reached("first frame");
        const double spare = kMinFrame - (now() - began);
        if (spare > 0.0)
            std::this_thread::sleep_for(std::chrono::duration<double>(spare));
    }
    writeReport();
    writeState(true);
}

void PlayerWindow::betweenFrames(double passed)
{
    takeDrops();
    takeChangedFiles();
    if (m_scene.loader().advance())
        takeActors();
    if (const std::string failed = m_scene.loader().takeFailed(); !failed.empty())
        say(std::filesystem::path(failed).filename().string() + ": not loaded; the log says why");
    if (m_starting && !m_scene.loader().isBusy())
        endStarting();
    for (const Action action : m_window.takeAsked())
        perform(action);
    for (const std::string& what : m_commands.takeAnswers())
        say("Could not be done: " + what);
    watchDraggers();
    if (!m_starting && !m_picture.isBusy())
        transport.advance(std::min(passed, kMaxStep));
    refreshLog();
    takePicture();
    describePanels();
    writeState(false);
}

void PlayerWindow::endStarting()
{
    m_starting = false;
    m_pace.beginAnew();
    if (!actors().empty())
        startUp().reached("actors");
    m_console.note("start-up: " + startUp().text());
    if (m_options.follow)
        follow(static_cast<unsigned>(*m_options.follow));
    if (m_options.shown.props)
        perform(Action::PropsDraggers);
    writeReport();
}

void PlayerWindow::frame()
{
    m_session.gate().close();
    try {
        beforeDrawing();
        m_window.viewer().frame(now());
    } catch (...) {
        m_session.gate().open();
        throw;
    }
    m_session.gate().open();
}

void PlayerWindow::beforeDrawing()
{
    m_scene.show(std::min(transport.time(), transport.duration()), m_picture.isBusy());
    m_detail.judge(m_pace.times());
    m_scene.stage().setDetail(m_picture.isBusy() ? StageDetail::Fine : m_detail.detail());
    m_scene.stage().setSampleSize(m_picture.isBusy() ? 1.0 / m_picture.side() : 1.0);
    if (m_picture.isBusy())
        m_spInterface->askForPicture(area());
    goAlong();
    m_camera.project(m_window.camera(), area(), m_picture.isBusy() ? m_picture.offset() : osg::Vec2d());
    m_scene.stage().fillPicture(area().inClipSpace());
    m_window.drawOnly(area());
}

/// What the draggers are doing, and that a drag ends when the keyboard goes to another window.
void PlayerWindow::watchDraggers()
{
    const bool lost = props.isDragging() && m_spNative && !m_spNative->hasKeyboard();
    const KivTaskCommand::SceneGate::Pass pass(m_session.gate());
    for (WatchedProps& one : props.all()) {
        osg::ref_ptr<KivManipulator::PropsGeode> geode;
        if (!one.geode.lock(geode))
            continue;
        if (lost)
            geode->finishDrag();
        one.draggerShown = geode->isPropsDraggerShown();
        one.contactDraggerShown = geode->isContactPointDraggerShown();
    }
}

void PlayerWindow::describePanels()
{
    const FreeArea whole = area();
    places.clear();
    control.clear();
    m_spInterface->begin(whole.windowWidth, whole.windowHeight, now());
    m_sidebar.describe(*this, whole.windowHeight);
    describeBar(*this, whole.windowWidth, whole.windowHeight);
    if (actors().empty() && !m_scene.loader().isBusy())
        describeEmpty(whole.windowWidth, whole.windowHeight);
    if (m_shown.fit)
        describeFit(*this, whole.windowWidth, whole.windowHeight);
    if (m_shown.statistics)
        describeStatistics(*this, whole.windowWidth);
    if (m_shown.help)
        describeHelp(*this, whole.windowWidth, whole.windowHeight);
    m_spInterface->end();
    const auto fit = places.find("fitReport");
    m_spInterface->setFloating(fit != places.end() ? std::vector<Place>{fit->second} : std::vector<Place>());
}

void PlayerWindow::refreshLog()
{
    if (now() - m_logRead < 0.5)
        return;
    m_logRead = now();
    m_log.clear();
    for (const std::string& line : KivErrorOperator::TavrinCommonErrorMsg::instance()->history())
        m_log.push_back({line, false});
    for (const std::string& line : m_console.errorLines())
        m_log.push_back({line, true});
}

void PlayerWindow::goAlong()
{
    bool on = false;
    std::string id;
    CharacterizationManager::instance()->GetCameraTraceState(on, id);
    std::optional<osg::Vec3d> hips;
    for (const auto& [index, actor] : actors())
        if (on && actor.id() == id && !actor.dressed.joints().empty())
            hips = actor.dressed.positions().front();
    // The camera keeps its height: figures that bob shall not shake the picture.
    if (hips)
        hips->z() = 0.0;
    const osg::Vec3d step = m_camera.goAlong(hips);
    if (step.length2() > 0.0) {
        auto* state = KivRenderStateManager::instance();
        state->setCameraTraceMatrix(state->getCameraTraceMatrix() * osg::Matrixd::translate(step));
    }
}

std::optional<unsigned> PlayerWindow::followed() const
{
    bool on = false;
    std::string id;
    CharacterizationManager::instance()->GetCameraTraceState(on, id);
    for (const auto& [index, actor] : actors())
        if (on && actor.id() == id)
            return index;
    return std::nullopt;
}

std::string PlayerWindow::status() const
{
    if (m_scene.loader().isBusy())
        return "Loading " + std::filesystem::path(m_scene.loader().file()).filename().string() + ", " +
               std::to_string(m_scene.loader().percent()) + " %";
    return now() - m_saidAt < 5.0 ? m_said : std::string();
}

void PlayerWindow::say(const std::string& text)
{
    m_said = text;
    m_saidAt = now();
}

}  // namespace KivPlayer
