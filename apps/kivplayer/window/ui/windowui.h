#pragma once

#include <vector>

#include "apps/kivplayer/window/ui/sidebar.h"
#include "apps/kivplayer/window/ui/uicontext.h"

namespace KivPlayer {

/// All panels of the window. Between the begin and the end of its layer.
class WindowUi
{
public:
    void draw(const WindowState& state, Requests& requests);

    /// The panels of the last frame that lie over the scene.
    const std::vector<Rect>& floating() const { return m_floating; }
    const WidgetLog& widgets() const { return m_widgets; }

private:
    Sidebar m_sidebar;
    WidgetLog m_widgets;
    std::vector<Rect> m_floating;
};

}  // namespace KivPlayer
