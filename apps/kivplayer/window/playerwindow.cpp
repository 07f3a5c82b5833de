#include "window/playerwindow.h"

#include <osgViewer/GraphicsWindow>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <stdexcept>
#include <thread>
#include <utility>

#include "KivCharacterization/characterizationmanager.h"
#include "KivErrorOperator/tavrincommonerrormsg.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "KivRenderState/kivrenderstatemanager.h"

namespace KivPlayer {

using KivCharacterization::CharacterizationManager;
using KivMemoryShare::SceneCfgShare;
using KivRenderState::KivRenderStateManager;

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 800;
constexpr unsigned kSamples = 4;
/// A display that does not hold frames back shall not keep a whole processor busy.
constexpr double kShortestFrame = 1.0 / 120.0;
constexpr double kLongestStep = 1.0;  // seconds of playback that one frame may take

/// Smooth edges cost a processor that draws by itself most of its frames.
bool drawsInSoftware()
{
    osg::ref_ptr<osg::GraphicsContext::Traits> traits = new osg::GraphicsContext::Traits;
    traits->readDISPLAY();
    traits->width = 1;
    traits->height = 1;
    traits->pbuffer = true;
    const osg::ref_ptr<osg::GraphicsContext> context =
        osg::GraphicsContext::createGraphicsContext(traits.get());
    if (!context || !context->realize() || !context->makeCurrent())
        return true;
    const GLubyte* renderer = glGetString(GL_RENDERER);
    const std::string name = renderer ? reinterpret_cast<const char*>(renderer) : "";
    context->releaseContext();
    context->close();
    return name.find("llvmpipe") != std::string::npos || name.find("softpipe") != std::string::npos;
}

/// Notes what keys ask for; it is done between frames, where commands get through the gate.
class KeyHandler : public osgGA::GUIEventHandler
{
public:
    explicit KeyHandler(std::vector<Action>& asked) : m_asked(asked) {}

    bool handle(const osgGA::GUIEventAdapter& ea, osgGA::GUIActionAdapter&, osg::Object*,
                osg::NodeVisitor*) override
    {
        if (ea.getEventType() == osgGA::GUIEventAdapter::CLOSE_WINDOW ||
            ea.getEventType() == osgGA::GUIEventAdapter::QUIT_APPLICATION) {
            m_asked.push_back(Action::Quit);
            return true;
        }
        if (ea.getHandled() || ea.getEventType() != osgGA::GUIEventAdapter::KEYDOWN)
            return false;
        const bool control = (ea.getModKeyMask() & osgGA::GUIEventAdapter::MODKEY_CTRL) != 0;
        const KeyBinding* binding = bindingFor(ea.getKey(), control);
        if (binding)
            m_asked.push_back(binding->action);
        return binding != nullptr;
    }

private:
    std::vector<Action>& m_asked;
};

}  // namespace

PlayerWindow::PlayerWindow(const Options& options, Session& session, Console& console)
    : m_options(options),
      m_session(session),
      m_console(console),
      m_loader(session),
      m_publisher(options.shown.contacts),
      m_stage(SceneCfgShare::instance()->getCharacterSceneNode()),
      m_stateFile(options.stateFile)
{
    m_shown.contacts = options.shown.contacts;
    m_shown.centreOfMass = options.shown.centreOfMass;
    m_shown.grid = options.shown.grid;
    m_names = options.shown.names;
    m_stage.showGrid(m_shown.grid);
    KivRenderStateManager::instance()->setCenterOfMassShow(m_shown.centreOfMass);
    CharacterizationManager::instance()->RegistPropsPropertyChangeNotify(&props);
    registerKeys();
    m_spInterface = std::make_unique<InterfaceLayer>(session.fontPath());
    m_spInterface->setPanels(kSidebarWidth, kBarHeight);
    openWindow();
    loadMotions();
}

PlayerWindow::~PlayerWindow()
{
    CharacterizationManager::instance()->UnRegistPropsPropertyChangeNotify(&props);
    SceneCfgShare::instance()->setCompositeViewer(nullptr);
    osgViewer::ViewerBase::Contexts contexts;
    m_spViewer->getContexts(contexts);
    for (osg::GraphicsContext* context : contexts)
        context->makeCurrent();
    m_spInterface.reset();
}

void PlayerWindow::openWindow()
{
    m_spViewer = new osgViewer::CompositeViewer;
    m_spViewer->setThreadingModel(osgViewer::ViewerBase::SingleThreaded);
    m_spViewer->setKeyEventSetsDone(0);
    m_spViewer->setQuitEventSetsDone(false);
    osg::ref_ptr<osg::GraphicsContext::Traits> traits = new osg::GraphicsContext::Traits;
    traits->readDISPLAY();
    traits->setUndefinedScreenDetailsToDefaultScreen();
    traits->x = 60;
    traits->y = 40;
    traits->width = kWidth;
    traits->height = kHeight;
    traits->windowName = "kivplayer";
    traits->windowDecoration = true;
    traits->doubleBuffer = true;
    traits->samples = drawsInSoftware() ? 0 : kSamples;
    const osg::ref_ptr<osg::GraphicsContext> context =
        osg::GraphicsContext::createGraphicsContext(traits.get());
    if (!context)
        throw std::runtime_error("no window can be opened on this display");
    m_spView = new osgViewer::View;
    osg::Camera* camera = m_spView->getCamera();
    camera->setGraphicsContext(context.get());
    camera->setViewport(0, 0, kWidth, kHeight);
    camera->setProjectionResizePolicy(osg::Camera::FIXED);
    m_spView->setSceneData(m_stage.root());
    m_spView->setCameraManipulator(m_camera.manipulator(), false);
    m_spView->addEventHandler(new KeyHandler(m_asked));
    m_spInterface->attach(*m_spView, *m_stage.root());
    m_spViewer->addView(m_spView);
    SceneCfgShare::instance()->setCompositeViewer(m_spViewer);
    m_spViewer->realize();
}

void PlayerWindow::loadMotions()
{
    m_nextActor = static_cast<unsigned>(m_options.motions.size());
    for (std::size_t i = 0; i < m_options.motions.size(); ++i) {
        const std::string& file = m_options.motions[i];
        m_loader.load(
            static_cast<unsigned>(i), file,
            i < m_options.names.size() ? m_options.names[i] : std::filesystem::path(file).stem().string());
    }
}

double PlayerWindow::now() const
{
    return std::chrono::duration<double>(Clock::now() - m_start).count();
}

FreeArea PlayerWindow::area() const
{
    const osg::Viewport* viewport = m_spView->getCamera()->getViewport();
    return {static_cast<int>(viewport->width()), static_cast<int>(viewport->height()), kSidebarWidth,
            kBarHeight};
}

void PlayerWindow::run()
{
    double last = now();
    while (!m_quit && !m_spViewer->done()) {
        const double began = now();
        betweenFrames(began - last);
        last = began;
        frame();
        if (m_firstFrame < 0.0)
            m_firstFrame = now();
        if (m_firstFigure < 0.0 && !actors().empty())
            m_firstFigure = now();
        const double spare = kShortestFrame - (now() - began);
        if (spare > 0.0)
            std::this_thread::sleep_for(std::chrono::duration<double>(spare));
    }
    writeState(true);
}

void PlayerWindow::betweenFrames(double passed)
{
    measure(passed);
    if (m_loader.advance())
        takeActors();
    if (m_starting && !m_loader.isBusy()) {
        m_starting = false;
        if (m_options.follow)
            follow(static_cast<unsigned>(*m_options.follow));
        if (m_options.shown.props)
            perform(Action::PropsDraggers);
    }
    for (const Action action : std::exchange(m_asked, {}))
        perform(action);
    takeAnswers();
    if (!m_starting)
        transport.advance(std::min(passed, kLongestStep));
    refreshLog();
    savePicture();
    describePanels();
    writeState(false);
}

void PlayerWindow::frame()
{
    m_session.gate().close();
    try {
        beforeDrawing();
        m_spViewer->frame(now());
    } catch (...) {
        m_session.gate().open();
        throw;
    }
    m_session.gate().open();
}

void PlayerWindow::beforeDrawing()
{
    m_publisher.show(std::min(transport.time(), transport.duration()));
    osg::BoundingBox box;
    for (const osg::Vec3d& place : m_publisher.placesNow())
        box.expandBy(place);
    m_stage.light(box);
    goAlong();
    m_camera.project(*m_spView->getCamera(), area());
    for (WatchedProps& one : props.all()) {
        osg::ref_ptr<KivManipulator::PropsGeode> geode;
        if (!one.geode.lock(geode))
            continue;
        one.draggerShown = geode->isPropsDraggerShown();
        one.contactDraggerShown = geode->isContactPointDraggerShown();
    }
}

void PlayerWindow::describePanels()
{
    const FreeArea whole = area();
    places.clear();
    m_spInterface->begin(whole.windowWidth, whole.windowHeight, now());
    m_sidebar.describe(*this, whole.windowHeight);
    describeBar(*this, whole.windowWidth, whole.windowHeight);
    if (m_shown.statistics)
        describeStatistics(*this, whole.windowWidth);
    if (m_shown.help)
        describeHelp(*this, whole.windowWidth, whole.windowHeight);
    m_spInterface->end();
}

void PlayerWindow::measure(double passed)
{
    m_passed.push_back(passed);
    ++m_frameTimes.frames;
    double sum = 0.0;
    double worst = 0.0;
    for (const double one : m_passed) {
        sum += one;
        worst = std::max(worst, one);
    }
    m_frameTimes.mean = 1000.0 * sum / static_cast<double>(m_passed.size());
    m_frameTimes.worst = 1000.0 * worst;
    while (m_passed.size() > 1 && sum > 2.0) {
        sum -= m_passed.front();
        m_passed.pop_front();
    }
}

void PlayerWindow::refreshLog()
{
    if (now() - m_logRead < 0.5)
        return;
    m_logRead = now();
    m_log = KivErrorOperator::TavrinCommonErrorMsg::instance()->history();
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
    if (m_loader.isBusy())
        return "Loading " + std::filesystem::path(m_loader.file()).filename().string() + " ...";
    return now() - m_saidAt < 5.0 ? m_said : std::string();
}

void PlayerWindow::say(const std::string& text)
{
    m_said = text;
    m_saidAt = now();
}

}  // namespace KivPlayer
