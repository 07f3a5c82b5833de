#pragma once

#include <imgui.h>
#include <osgGA/GUIEventHandler>

#include <deque>
#include <set>
#include <vector>

#include "apps/kivplayer/window/state/viewarea.h"

namespace KivPlayer {

/// Hands the events of a window on to Dear ImGui, and keeps those from the scene that belong to a panel.
class InterfaceEvents : public osgGA::GUIEventHandler
{
public:
    using Event = osgGA::GUIEventAdapter;

    /// Tells the current context which keys mean what.
    static void mapKeys(ImGuiIO& io);

    bool handle(const Event& ea, osgGA::GUIActionAdapter&, osg::Object*, osg::NodeVisitor*) override;

    /// The pixels at the left and at the bottom that belong to panels, and those that lie over the scene.
    void setPanels(float left, float bottom);
    void setFloating(std::vector<Rect> floating) { m_floating = std::move(floating); }

    /// What the pointer did since the last frame, up to the first button that changed: a click between two
    /// frames is still seen as a press and a release.
    void takeOver(ImGuiIO& io);
    /// After the panels have been described: keys that came and went between two frames are let go.
    void letGo(ImGuiIO& io);

    /// Whether the keyboard works the panels.
    bool keysToPanels() const { return m_keysToPanels; }
    void giveKeysToPanels(bool given) { m_keysToPanels = given; }

private:
    struct Move
    {
        ImVec2 place;
        int button;  ///< -1: none
        bool down;
    };

    void mouseMoved(const Event& ea, int button = -1, bool down = false);
    bool mouseButton(const Event& ea, bool down);
    bool overPanel() const;
    bool scrolled(const Event& ea) const;
    bool key(const Event& ea, bool down);
    static void noteModifiers(const Event& ea, ImGuiIO& io);

    std::deque<Move> m_moves;
    ImVec2 m_pointer{-1e6f, -1e6f};
    std::set<int> m_fresh;
    std::set<int> m_released;
    std::vector<Rect> m_floating;
    float m_left = 0.0f;
    float m_bottom = 0.0f;
    bool m_sceneHasMouse = false;
    bool m_keysToPanels = false;
};

}  // namespace KivPlayer
