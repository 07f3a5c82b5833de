#pragma once

#include "window/desk.h"

namespace KivPlayer {

constexpr int kSidebarWidth = 300;  // pixels
constexpr int kBarHeight = 92;

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
    void overlays(Desk& desk);
    void props(Desk& desk);
    void contactColours(Desk& desk);
    void fit(Desk& desk);
    void log(Desk& desk);

    std::map<unsigned, std::string> m_typed;  ///< names that are being edited
    std::string m_file;
    std::string m_contactJoint;
    float m_contactColour[3] = {0.9f, 0.2f, 0.2f};
    std::size_t m_logLines = 0;
};

void describeHelp(Desk& desk, int width, int height);
void describeStatistics(const Desk& desk, int width);

/// Remembers where the control that was described last stands.
void notePlace(Desk& desk, const std::string& name);

}  // namespace KivPlayer
