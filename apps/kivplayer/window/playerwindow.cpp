#include "apps/kivplayer/window/playerwindow.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "KivMemoryShare/scenecfgshare.h"
#include "apps/kivplayer/window/inspection/statejson.h"
#include "apps/kivplayer/window/startup.h"
#include "apps/kivplayer/window/state/keytable.h"
#include "apps/kivplayer/window/ui/keyhandler.h"
#include "apps/kivplayer/window/ui/panels.h"

namespace KivPlayer {

using KivMemoryShare::SceneCfgShare;

namespace {

/// A display that does not hold frames back shall not keep a whole processor busy.
constexpr double kMinFrame = 1.0 / 120.0;
constexpr double kMaxPlaybackStep = 1.0;  // seconds of playback that one frame may take

}  // namespace

PlayerWindow::PlayerWindow(const Options& options, Session& session, Console& console)
    : m_console(console),
      m_session(session),
      m_commands(session, console),
      m_scene(session, options.shown[Overlay::Contacts]),
      m_spLayer(std::make_unique<InterfaceLayer>(session.fontPath())),
      m_spController(std::make_unique<Controller>(
          PlayerContext{options, console, session, m_commands, m_scene, m_state}, m_quality)),
      m_spWindow(
          std::make_unique<ViewerWindow>(m_scene.stage().root(), m_spController->camera().manipulator())),
      m_spNative(NativeWindow::of(m_spWindow->context())),
      m_stateFile(options.stateFile)
{
    startUp().reached("window");
    m_quality.start(m_spWindow->drawsInSoftware());
    m_state.area = {m_spWindow->width(), m_spWindow->height(), kSidebarWidth, kBarHeight};
    SceneCfgShare::instance()->setCompositeViewer(&m_spWindow->viewer());
    registerKeys();
    m_spWindow->view().addEventHandler(new KeyHandler(m_requests));
    m_spLayer->setPanels(kSidebarWidth, kBarHeight);
    m_spLayer->attach(m_spWindow->view(), *m_scene.stage().root());
    m_scene.drawWith(m_spWindow->camera());
    m_spController->start();
}

PlayerWindow::~PlayerWindow()
{
    SceneCfgShare::instance()->setCompositeViewer(nullptr);
    m_spWindow->context().makeCurrent();
    m_spLayer.reset();
}

double PlayerWindow::now() const
{
    return std::chrono::duration<double>(Clock::now() - m_start).count();
}

void PlayerWindow::run()
{
    double last = now();
    while (!m_spController->isQuitting() && !m_spWindow->viewer().done()) {
        const double began = now();
        betweenFrames(began - last);
        last = began;
        const double drawing = now();
        frame();
        m_pace.note(now() - drawing, drawing - began);
        if (m_pace.times().frames == 1)
            startUp().reached("first frame");
        const double spare = kMinFrame - (now() - began);
        if (spare > 0.0)
            std::this_thread::sleep_for(std::chrono::duration<double>(spare));
    }
    m_spController->finish();
    writeState(true);
}

void PlayerWindow::betweenFrames(double passed)
{
    m_state.area = {m_spWindow->width(), m_spWindow->height(), kSidebarWidth, kBarHeight};
    m_state.frameTimes = m_pace.times();
    if (m_spNative)
        for (const std::string& file : m_spNative->droppedFiles())
            m_requests.push_back(LoadFile{file});
    if (m_spController->props().isDragging() && m_spNative && !m_spNative->hasKeyboard())
        m_spController->props().finishDrags();
    applyRequests();
    const bool wasStarted = m_spController->hasStarted();
    m_spController->advance(now(), std::min(passed, kMaxPlaybackStep));
    if (!wasStarted && m_spController->hasStarted())
        m_pace.reset();
    if (const osg::ref_ptr<osg::Image> frame = m_spLayer->takePicture())
        m_spController->takePictureFrame(*frame);
    drawPanels();
    applyRequests();
    writeState(false);
}

void PlayerWindow::applyRequests()
{
    for (const Request& request : std::exchange(m_requests, {})) {
        const auto* action = std::get_if<Action>(&request);
        if (action && *action == Action::NextPanel)
            m_spLayer->focusNextPanel({kSidebarWindow, kBarWindow});
        else
            m_spController->apply(request);
    }
}

void PlayerWindow::drawPanels()
{
    m_spLayer->begin(m_state.area.windowWidth, m_state.area.windowHeight, now());
    m_ui.draw(m_state, m_requests);
    m_spLayer->end();
    m_spLayer->setFloating(m_ui.floating());
}

void PlayerWindow::frame()
{
    m_session.gate().close();
    try {
        beforeDrawing();
        m_spWindow->viewer().frame(now());
    } catch (...) {
        m_session.gate().open();
        throw;
    }
    m_session.gate().open();
}

void PlayerWindow::beforeDrawing()
{
    const Screenshot& picture = m_spController->screenshot();
    const Transport& transport = m_state.transport;
    const ViewArea& area = m_state.area;
    m_scene.show(std::min(transport.time(), transport.duration()), picture.isBusy());
    m_quality.judge(m_pace.times());
    m_scene.stage().setDetail(picture.isBusy() ? StageDetail::Fine : m_quality.detail());
    m_scene.stage().setSampleSize(picture.isBusy() ? 1.0 / picture.side() : 1.0);
    if (picture.isBusy())
        m_spLayer->askForPicture(area);
    m_spController->camera().apply(m_spWindow->camera(), picture.isBusy() ? picture.shift() : osg::Vec2d());
    m_scene.stage().fillPicture(area.inClipSpace());
    m_spWindow->drawOnly(area.left, area.bottom, area.width(), area.height());
}

void PlayerWindow::writeState(bool last)
{
    if (!m_stateFile.isWanted() || (!m_stateFile.isDue(now()) && !last))
        return;
    nlohmann::ordered_json all;
    {
        // Props are asked where they are, and a command may be changing them.
        const KivTaskCommand::SceneGate::Pass pass(m_session.gate());
        all = stateJson({m_state, m_ui.widgets(), m_spController->props().watch(), m_spWindow->camera(),
                         m_spController->camera().pose(), m_spLayer->focusedPanel(), m_commands.count(),
                         m_spController->screenshot().files(), startUp().parts(), !last});
    }
    const std::string problem = m_stateFile.write(all);
    if (!problem.empty() && last)
        m_console.error({m_stateFile.name(), 0, 0, problem});
}

}  // namespace KivPlayer
