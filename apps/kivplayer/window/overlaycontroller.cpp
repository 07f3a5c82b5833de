#include "apps/kivplayer/window/overlaycontroller.h"

#include "apps/kivplayer/session/overlayeffects.h"

namespace KivPlayer {

OverlayController::OverlayController(const PlayerContext& context, PropController& props,
                                     QualityGovernor& quality)
    : m_context(context),
      m_props(props),
      m_quality(quality),
      m_namesChosen(context.options.shown.chosen(Overlay::Names))
{
    // Draggers and panels are shown once there is something for them to work on.
    for (const OverlayEntry& entry : overlayTable())
        if (const auto chosen = context.options.shown.chosen(entry.overlay);
            chosen && entry.overlay != Overlay::PropDraggers)
            context.state.shown.set(entry.overlay, *chosen);
    applyOverlays(context.state.shown, context.scene.stage(), context.scene.publisher());
}

void OverlayController::toggle(Overlay overlay)
{
    const bool shown = !m_context.state.shown[overlay];
    m_context.state.shown.set(overlay, shown);
    applyOverlay(overlay, shown, m_context.scene.stage(), m_context.scene.publisher());
    if (overlay == Overlay::Names) {
        m_namesChosen = shown;
        m_context.session.showNames(shown);
    } else if (overlay == Overlay::Shadows)
        m_quality.setShadows(shown);
    else if (overlay == Overlay::PropDraggers)
        m_props.showDraggers(shown);
    else if (overlay == Overlay::ContactDraggers)
        m_props.showContactDraggers(shown);
}

void OverlayController::applyToLabels()
{
    const std::size_t actors = m_context.session.actors().size();
    m_context.state.shown.set(Overlay::Names, m_namesChosen.value_or(actors > 1));
    if (m_namesChosen)
        m_context.session.showNames(*m_namesChosen);
}

void OverlayController::updateState()
{
    m_context.state.shown.set(Overlay::Shadows, m_quality.shadows());
}

}  // namespace KivPlayer
