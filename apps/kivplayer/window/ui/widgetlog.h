#pragma once

#include <map>
#include <string>

#include "apps/kivplayer/window/state/viewarea.h"

namespace KivPlayer {

/// Where the widgets of the last frame stand: what a test needs to point at them. Nothing else reads it.
class WidgetLog
{
public:
    /// Forgets the last frame.
    void reset();

    /// Notes the widget that was drawn last, by name.
    void note(const std::string& name);
    /// Notes the panel that is being drawn.
    void notePanel(const std::string& name);

    const std::map<std::string, Rect>& rects() const { return m_rects; }
    /// The widget that the keyboard works; empty: none.
    const std::string& focused() const { return m_focused; }

private:
    std::map<std::string, Rect> m_rects;
    std::string m_focused;
};

}  // namespace KivPlayer
