#pragma once

#include <osgViewer/CompositeViewer>

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "apps/kivplayer/output/eglcontext.h"
#include "apps/kivplayer/session/session.h"
#include "apps/kivplayer/window/playedscene.h"

namespace KivBenchmark {

/// What a frame spent, milliseconds of the clock.
struct FrameParts
{
    double taking = 0.0;  ///< into the player's tables what the command thread has loaded
    double gate = 0.0;    ///< waiting to pass it, to close it and to open it
    double posing = 0.0;  ///< setting the scene up for its moment
    double update = 0.0;
    double cull = 0.0;
    double upload = 0.0;   ///< of what figures that have just come are drawn from
    double drawing = 0.0;  ///< the rest, up to the last pixel
    double whole = 0.0;
    double processor = 0.0;   ///< processor time of the thread that draws
    std::size_t visible = 0;  ///< figures

    static const std::map<std::string, double FrameParts::*>& names();
};

/// The frames of the player's window, without window and panels: the same rooms, drawn on an off-screen
/// surface. One at a time.
class DrawnLoop
{
public:
    DrawnLoop(KivPlayer::Session& session, int width, int height);
    ~DrawnLoop();
    DrawnLoop(const DrawnLoop&) = delete;
    DrawnLoop& operator=(const DrawnLoop&) = delete;

    /// The next frame of the motions, a hundredth of a second after the one before.
    FrameParts frame();

    /// Queues a file; frames load it.
    void load(unsigned actor, const std::string& file);
    /// Whether something is being loaded, or has been and is not to be seen yet.
    bool isLoading() const;
    void setVisible(unsigned actor, bool visible);

    KivPlayer::PlayedScene& scene() { return m_scene; }
    osg::Camera& camera() { return *m_spView->getCamera(); }

    /// Called in every frame, the gate closed, before the scene is set up for its moment.
    std::function<void()> whenClosed = [] {};

private:
    class Finish;

    void takeLoaded(FrameParts& parts);
    void draw(FrameParts& parts);
    std::size_t visibleFigures() const;

    KivPlayer::Session& m_session;
    KivPlayer::EglContext m_context;
    osg::ref_ptr<osgViewer::CompositeViewer> m_spViewer = new osgViewer::CompositeViewer;
    osg::ref_ptr<osgViewer::View> m_spView = new osgViewer::View;
    KivPlayer::PlayedScene m_scene;
    double m_time = 0.0;
};

}  // namespace KivBenchmark
