#pragma once

#include <chrono>
#include <memory>

#include "apps/kivplayer/window/controller.h"
#include "apps/kivplayer/window/inspection/statefile.h"
#include "apps/kivplayer/window/platform/nativewindow.h"
#include "apps/kivplayer/window/platform/viewerwindow.h"
#include "apps/kivplayer/window/state/qualitygovernor.h"
#include "apps/kivplayer/window/ui/interfacelayer.h"
#include "apps/kivplayer/window/ui/windowui.h"

namespace KivPlayer {

/// The window: one view of the stage, panels over it, and the frame loop. The session must have been started.
/// Made, run and destroyed on one thread, before the session.
class PlayerWindow
{
public:
    /// @throws std::runtime_error where no window can be opened.
    PlayerWindow(const Options& options, Session& session, Console& console);
    ~PlayerWindow();
    PlayerWindow(const PlayerWindow&) = delete;
    PlayerWindow& operator=(const PlayerWindow&) = delete;

    /// Until it is closed.
    void run();

private:
    using Clock = std::chrono::steady_clock;

    void betweenFrames(double passed);
    void applyRequests();
    void drawPanels();
    void frame();
    void beforeDrawing();
    void writeState(bool last);
    double now() const;

    Console& m_console;
    Session& m_session;
    WindowState m_state;
    Requests m_requests;
    PendingCommands m_commands;
    PlayedScene m_scene;
    std::unique_ptr<InterfaceLayer> m_spLayer;
    WindowUi m_ui;
    QualityGovernor m_quality;
    FramePace m_pace;
    std::unique_ptr<Controller> m_spController;
    std::unique_ptr<ViewerWindow> m_spWindow;
    std::unique_ptr<NativeWindow> m_spNative;  ///< null where the system offers nothing
    StateFile m_stateFile;
    Clock::time_point m_start = Clock::now();
};

}  // namespace KivPlayer
