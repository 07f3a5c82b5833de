#include "apps/kivplayer/window/ui/windowui.h"

#include "apps/kivplayer/window/ui/panels.h"

namespace KivPlayer {

void WindowUi::draw(const WindowState& state, Requests& requests)
{
    m_widgets.reset();
    m_floating.clear();
    const UiContext ui{state, requests, m_widgets, m_floating};
    m_sidebar.draw(ui);
    drawPlayBar(ui);
    if (state.actors.empty() && !state.loading.isBusy)
        drawEmptyView(ui);
    if (state.shown[Overlay::FitReport])
        drawFitReport(ui);
    if (state.shown[Overlay::Statistics])
        drawStatistics(ui);
    if (state.shown[Overlay::Help])
        drawHelp(ui);
}

}  // namespace KivPlayer
