#pragma once

#include <string>

#include "apps/kivplayer/window/actorcontroller.h"
#include "apps/kivplayer/window/cameracontroller.h"
#include "apps/kivplayer/window/fitreportkeeper.h"
#include "apps/kivplayer/window/overlaycontroller.h"
#include "apps/kivplayer/window/playercontext.h"
#include "apps/kivplayer/window/propcontroller.h"
#include "apps/kivplayer/window/screenshot.h"
#include "apps/kivplayer/window/state/requests.h"

namespace KivPlayer {

/// Does what the user asks for, and keeps the state that the panels read. Everything that changes the scene
/// goes out as a command and is done later. On the thread of the frame loop, between frames.
class Controller
{
public:
    Controller(const PlayerContext& context, QualityGovernor& quality);

    /// Begins to load the motions of the command line.
    void start();
    /// Writes what is to be written when the window closes.
    void finish() const { m_report.write(); }

    void apply(const Request& request);

    /// Goes on with loading, commands and playback. Never waits.
    /// @param now    seconds since the start.
    /// @param passed seconds of playback since the last call.
    void advance(double now, double passed);
    /// @param frame the scene as it was drawn last, for the picture that is being made.
    void takePictureFrame(const osg::Image& frame);

    bool isQuitting() const { return m_quit; }
    /// Whether the motions of the command line are all there.
    bool hasStarted() const { return !m_starting; }

    /// @param text for the user, for a few seconds.
    void say(const std::string& text);

    CameraController& camera() { return m_camera; }
    PropController& props() { return m_props; }
    Screenshot& screenshot() { return m_screenshot; }

private:
    void perform(Action action);
    void paintContact(const PaintContact& wanted);
    void remove(unsigned actor);
    void takeActors();
    void endStarting();
    void updateState();
    void readLog();

    PlayerContext m_context;
    CameraController m_camera;
    ActorController m_actors;
    PropController m_props;
    OverlayController m_overlays;
    FitReportKeeper m_report;
    Screenshot m_screenshot;
    double m_now = 0.0;
    double m_logRead = -1.0;
    std::string m_said;
    double m_saidAt = -1e9;
    bool m_quit = false;
    bool m_starting = true;
};

}  // namespace KivPlayer
