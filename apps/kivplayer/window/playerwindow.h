#pragma once

#include <osg/ref_ptr>
#include <osgGA/GUIEventHandler>
#include <osgViewer/CompositeViewer>

#include <chrono>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "console.h"
#include "framepublisher.h"
#include "options.h"
#include "stage.h"
#include "window/actorloader.h"
#include "window/desk.h"
#include "window/interfacelayer.h"
#include "window/orbitcamera.h"
#include "window/panels.h"
#include "window/statefile.h"

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
    void reload(unsigned actor) override;
    void remove(unsigned actor) override;
    void rename(unsigned actor, const std::string& name) override;
    void setVisible(unsigned actor, bool visible) override;
    void follow(std::optional<unsigned> actor) override;
    void showDragger(const WatchedProps& props, bool shown) override;
    void showContactDragger(const WatchedProps& props, bool shown) override;
    void place(const WatchedProps& props) override;
    void paintContact(const std::string& joint, const float* colour) override;

    const std::map<unsigned, LoadedActor>& actors() const override { return m_session.actors(); }
    bool isVisible(unsigned actor) const override { return m_hidden.count(actor) == 0; }
    std::optional<unsigned> followed() const override;
    const ShownNow& shown() const override { return m_shown; }
    const FrameTimes& frameTimes() const override { return m_frameTimes; }
    std::string status() const override;
    const std::vector<std::string>& log() const override { return m_log; }
    const nlohmann::ordered_json& fitReport() override;

private:
    using Clock = std::chrono::steady_clock;

    struct Pending
    {
        std::future<bool> answer;
        std::string what;
        std::function<void(bool)> then;
    };

    void openWindow();
    void loadMotions();
    void frame();
    void betweenFrames(double passed);
    void beforeDrawing();
    void describePanels();
    void takeAnswers();
    void takeActors();
    void findHome();
    void measure(double passed);
    void refreshLog();
    void goAlong();
    void savePicture();
    void writeState(bool always);
    nlohmann::ordered_json state() const;
    nlohmann::ordered_json propsState() const;
    FreeArea area() const;
    void toggleNames();
    void toggleDraggers();
    void followNext();
    void say(const std::string& text);
    void send(const std::string& what, const Session::Attach& attach,
              const std::function<void(bool)>& then = {});
    double now() const;

    const Options& m_options;
    Session& m_session;
    Console& m_console;
    ActorLoader m_loader;
    FramePublisher m_publisher;
    Stage m_stage;
    OrbitCamera m_camera;
    osg::ref_ptr<osgViewer::CompositeViewer> m_spViewer;
    osg::ref_ptr<osgViewer::View> m_spView;
    std::unique_ptr<InterfaceLayer> m_spInterface;
    Sidebar m_sidebar;
    StateFile m_stateFile;
    ShownNow m_shown;
    std::optional<bool> m_names;  ///< what the user wants; the module decides where unset
    std::set<unsigned> m_hidden;
    std::vector<Pending> m_pending;
    std::vector<Action> m_asked;  ///< by keys, since the last frame
    nlohmann::ordered_json m_report;
    bool m_reportIsOld = true;
    std::vector<std::string> m_log;
    double m_logRead = -1.0;
    std::string m_said;
    double m_saidAt = -1e9;
    unsigned m_nextActor = 0;
    bool m_quit = false;
    bool m_starting = true;  ///< the motions of the command line are still being loaded
    Clock::time_point m_start = Clock::now();
    double m_firstFrame = -1.0;
    double m_firstFigure = -1.0;
    std::deque<double> m_passed;
    FrameTimes m_frameTimes;
    std::vector<std::string> m_pictures;  ///< that were written
};

}  // namespace KivPlayer
