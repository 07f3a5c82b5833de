#pragma once

#include "apps/kivplayer/window/ui/desk.h"

namespace KivPlayer {

constexpr int kSidebarWidth = 300;  // pixels
constexpr int kBarHeight = 92;

/// The names of the panels that the keyboard can be given to.
constexpr const char* kSidebarWindow = "##sidebar";
constexpr const char* kBarWindow = "##bar";

/// The bar at the bottom: the time line and what moves along it.
void describeBar(Desk& desk, int width, int height);

/// The panels at the left. Keeps what is open and what is being typed.
class Sidebar
{
public:
    void describe(Desk& desk, int height);

private:
    void actors(Desk& desk);
    void actor(Desk& desk, const LoadedActor& actor);
    void name(Desk& desk, const LoadedActor& actor);
    void details(Desk& desk, const LoadedActor& actor);
    static void offset(Desk& desk, const LoadedActor& actor);
    void overlays(Desk& desk);
    void contactColours(Desk& desk);
    void log(Desk& desk);

    std::map<unsigned, std::string> m_typed;  ///< names that are being edited
    std::set<unsigned> m_open;                ///< actors whose details are shown
    std::string m_file;
    std::string m_replacement;
    std::string m_contactJoint;
    float m_contactColour[3] = {0.9f, 0.2f, 0.2f};
    std::size_t m_logLines = 0;
    std::size_t m_logErrors = 0;
};

void describeProps(Desk& desk);
/// How every actor was dressed, a table over the scene.
void describeFit(Desk& desk, int width, int height);
void describeHelp(Desk& desk, int width, int height);
/// What to do in a window without actors.
void describeEmpty(int width, int height);
void describeStatistics(const Desk& desk, int width);

/// A part of the sidebar that opens and closes.
bool section(const char* title, bool open);
/// For who points at the control that was described last.
void tip(const char* text);

/// Remembers where the control that was described last stands.
void notePlace(Desk& desk, const std::string& name);

}  // namespace KivPlayer
