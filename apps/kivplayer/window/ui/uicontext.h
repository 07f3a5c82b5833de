#pragma once

#include <string>
#include <vector>

#include "apps/kivplayer/window/state/requests.h"
#include "apps/kivplayer/window/state/windowstate.h"
#include "apps/kivplayer/window/ui/widgetlog.h"

namespace KivPlayer {

/// What a panel works with while it draws itself, between frames: it reads the state and asks for changes,
/// which are made later.
struct UiContext
{
    const WindowState& state;
    Requests& requests;
    WidgetLog& widgets;
    std::vector<Rect>& floating;  ///< the panels that lie over the scene, for the mouse

    void ask(const Request& request) const { requests.push_back(request); }
    /// Names the widget that was drawn last.
    void note(const std::string& name) const { widgets.note(name); }
    /// Names the panel that is being drawn, and keeps the mouse from the scene behind it.
    void noteFloating(const std::string& name) const
    {
        widgets.notePanel(name);
        floating.push_back(widgets.rects().at(name));
    }
};

}  // namespace KivPlayer
