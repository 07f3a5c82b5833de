#include "benchmarks/support/drawnloop.h"

#include <osg/Stats>
#include <osgViewer/GraphicsWindow>

#include <chrono>
#include <cmath>

#include "KivMemoryShare/scenecfgshare.h"
#include "benchmarks/support/threadclock.h"

namespace KivBenchmark {

namespace {

using Clock = std::chrono::steady_clock;
using KivMemoryShare::SceneCfgShare;

constexpr double kStep = 0.01;  // seconds of the motions from frame to frame

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// Milliseconds that the work takes.
template <typename Work>
double timeOf(Work&& work)
{
    const Clock::time_point start = Clock::now();
    work();
    return millisecondsSince(start);
}

}  // namespace

/// A frame ends when its last pixel is there.
class DrawnLoop::Finish : public osg::Camera::DrawCallback
{
public:
    void operator()(osg::RenderInfo&) const override { glFinish(); }
};

const std::map<std::string, double FrameParts::*>& FrameParts::names()
{
    static const std::map<std::string, double FrameParts::*> all{
        {"taking over", &FrameParts::taking}, {"gate", &FrameParts::gate}, {"posing", &FrameParts::posing},
        {"update", &FrameParts::update},      {"cull", &FrameParts::cull}, {"upload", &FrameParts::upload},
        {"drawing", &FrameParts::drawing}};
    return all;
}

DrawnLoop::DrawnLoop(KivPlayer::Session& session, int width, int height)
    : m_session(session), m_context(width, height), m_scene(session, false)
{
    m_spViewer->setThreadingModel(osgViewer::ViewerBase::SingleThreaded);
    camera().setGraphicsContext(new osgViewer::GraphicsWindowEmbedded(0, 0, width, height));
    camera().setViewport(0, 0, width, height);
    camera().setProjectionMatrixAsPerspective(30.0, static_cast<double>(width) / height, 1.0, 10000.0);
    camera().setViewMatrixAsLookAt(osg::Vec3d(210, -820, 150), osg::Vec3d(0, 20, 85), osg::Vec3d(0, 0, 1));
    camera().setFinalDrawCallback(new Finish);
    camera().setStats(new osg::Stats("frame"));
    camera().getStats()->collectStats("rendering", true);
    m_scene.drawWith(camera());
    m_scene.stage().setDetail(KivPlayer::StageDetail::Quick);
    m_spView->setSceneData(m_scene.stage().root());
    m_spViewer->addView(m_spView);
    SceneCfgShare::instance()->setCompositeViewer(m_spViewer);
    m_spViewer->realize();
}

DrawnLoop::~DrawnLoop()
{
    SceneCfgShare::instance()->setCompositeViewer(nullptr);
    // OpenGL objects go while their context is still current.
    m_scene.stage().root()->releaseGLObjects(camera().getGraphicsContext()->getState());
    m_spView->setSceneData(nullptr);
}

FrameParts DrawnLoop::frame()
{
    FrameParts parts;
    const Clock::time_point start = Clock::now();
    const double processor = threadSeconds();
    takeLoaded(parts);
    parts.gate += timeOf([this] { m_session.gate().close(); });
    whenClosed();
    const double duration = m_scene.publisher().duration();
    m_time = m_time + kStep < duration ? m_time + kStep : 0.0;
    parts.posing = timeOf([this] { m_scene.show(m_time); });
    draw(parts);
    parts.visible = visibleFigures();
    parts.gate += timeOf([this] { m_session.gate().open(); });
    parts.processor = 1e3 * (threadSeconds() - processor);
    parts.whole = millisecondsSince(start);
    return parts;
}

void DrawnLoop::takeLoaded(FrameParts& parts)
{
    const Clock::time_point start = Clock::now();
    if (m_scene.loader().advance()) {
        const Clock::time_point atGate = Clock::now();
        const KivTaskCommand::SceneGate::Pass pass(m_session.gate());
        parts.gate = millisecondsSince(atGate);
        m_scene.takeActors();
    }
    parts.taking = millisecondsSince(start) - parts.gate;
}

void DrawnLoop::draw(FrameParts& parts)
{
    m_spViewer->advance(m_time);
    m_spViewer->eventTraversal();
    parts.update = timeOf([this] { m_spViewer->updateTraversal(); });
    const double rendering = timeOf([this] { m_spViewer->renderingTraversals(); });
    double cull = 0.0;
    camera().getStats()->getAttribute(m_spViewer->getFrameStamp()->getFrameNumber(),
                                      "Cull traversal time taken", cull);
    parts.cull = 1e3 * cull;
    parts.upload = m_scene.uploads().uploadTime();
    parts.drawing = rendering - parts.cull - parts.upload;
}

void DrawnLoop::load(unsigned actor, const std::string& file)
{
    m_scene.loader().load(actor, file, "Actor " + std::to_string(actor));
}

bool DrawnLoop::isLoading() const
{
    return m_scene.loader().isBusy() || m_scene.uploads().waiting() > 0;
}

void DrawnLoop::setVisible(unsigned actor, bool visible)
{
    const KivTaskCommand::SceneGate::Pass pass(m_session.gate());
    m_session.actors().at(actor).dressed.root().setNodeMask(visible ? ~0u : 0u);
}

std::size_t DrawnLoop::visibleFigures() const
{
    std::size_t visible = 0;
    const osg::Group& figures = *SceneCfgShare::instance()->getCharacterSceneNode();
    for (unsigned i = 0; i < figures.getNumChildren(); ++i)
        visible += figures.getChild(i)->getNodeMask() != 0 ? 1 : 0;
    return visible - m_scene.uploads().waiting();
}

}  // namespace KivBenchmark
