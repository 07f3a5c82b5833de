#pragma once

#include <chrono>
#include <future>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/output/supersampler.h"
#include "apps/kivplayer/support/console.h"
#include "apps/kivplayer/window/pendingcommands.h"
#include "apps/kivplayer/window/platform/nativewindow.h"
#include "apps/kivplayer/window/playedscene.h"
#include "apps/kivplayer/window/state/filewatch.h"
#include "apps/kivplayer/window/state/framepace.h"
#include "apps/kivplayer/window/state/orbitcamera.h"
#include "apps/kivplayer/window/statefile.h"
#include "apps/kivplayer/window/ui/desk.h"
#include "apps/kivplayer/window/ui/interfacelayer.h"
#include "apps/kivplayer/window/ui/panels.h"
#include "apps/kivplayer/window/viewerwindow.h"

namespace KivPlayer {

/// The window: one view of the stage, panels over it, and the frame loop. The session must have been started.
/// Made, run and destroyed on one thread, before the session.
class PlayerWindow : public Desk
{
public:
    /// @throws std::runtime_error where no window can be opened.
    PlayerWindow(const Options& options, Session& session, Console& console);
    ~PlayerWindow() override;
    PlayerWindow(const PlayerWindow&) = delete;
    PlayerWindow& operator=(const PlayerWindow&) = delete;

    /// Until it is closed.
    void run();

    void perform(Action action) override;
    void load(const std::string& file) override;
    void replace(unsigned actor, const std::string& file) override;
    void remove(unsigned actor) override;
    void rename(unsigned actor, const std::string& name) override;
    void setVisible(unsigned actor, bool visible) override;
    void setOffset(unsigned actor, double seconds) override;
    void follow(std::optional<unsigned> actor) override;
    void showDragger(const WatchedProps& props, bool shown) override;
    void showContactDragger(const WatchedProps& props, bool shown) override;
    void place(const WatchedProps& props) override;
    void paintContact(const std::string& joint, const float* colour) override;

    const std::map<unsigned, LoadedActor>& actors() const override { return m_session.actors(); }
    bool isVisible(unsigned actor) const override { return m_hidden.count(actor) == 0; }
    std::optional<unsigned> followed() const override;
    const ShownNow& shown() const override { return m_shown; }
    bool shadows() const override { return m_detail.shadows(); }
    const FrameTimes& frameTimes() const override { return m_pace.times(); }
    std::string status() const override;
    const std::vector<LogLine>& log() const override { return m_log; }
    const FitReport& fitReport() override;

private:
    using Clock = std::chrono::steady_clock;

    void loadMotions();
    void frame();
    void betweenFrames(double passed);
    void beforeDrawing();
    void watchDraggers();
    void describePanels();
    void takeActors();
    void takeDrops();
    void takeChangedFiles();
    void showLabels();
    void findHome();
    void endStarting();
    void refreshLog();
    void goAlong();
    void toggleNames();
    void toggleDraggers();
    void toggleContactDraggers();
    void toggleShadows();
    void followNext();
    void takePicture();
    void savePicture(const osg::Image& picture);
    void writeReport();
    void writeState(bool always);
    nlohmann::ordered_json state() const;
    nlohmann::ordered_json propsState() const;
    nlohmann::ordered_json placesState() const;
    FreeArea area() const;
    void say(const std::string& text);
    double now() const;

    const Options& m_options;
    Session& m_session;
    Console& m_console;
    PendingCommands m_commands;
    PlayedScene m_scene;
    OrbitCamera m_camera;
    std::unique_ptr<InterfaceLayer> m_spInterface;
    ViewerWindow m_window;
    std::unique_ptr<NativeWindow> m_spNative;
    DetailChoice m_detail;
    FramePace m_pace;
    FileWatch m_watch;
    Sidebar m_sidebar;
    StateFile m_stateFile;
    ShownNow m_shown;
    std::optional<bool> m_names;  ///< what the user wants; the module decides where unset
    std::set<unsigned> m_hidden;
    FitReport m_report;
    bool m_reportIsOld = true;
    std::vector<LogLine> m_log;
    double m_logRead = -1.0;
    std::string m_said;
    double m_saidAt = -1e9;
    unsigned m_nextActor = 0;
    bool m_quit = false;
    bool m_starting = true;  ///< the motions of the command line are still being loaded
    Supersampler m_picture;
    Clock::time_point m_start = Clock::now();
    std::vector<std::string> m_pictures;  ///< that were written
};

}  // namespace KivPlayer
