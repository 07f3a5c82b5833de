#pragma once

#include <optional>

#include "apps/kivplayer/window/playercontext.h"
#include "apps/kivplayer/window/propcontroller.h"
#include "apps/kivplayer/window/state/qualitygovernor.h"

namespace KivPlayer {

/// Shows and hides overlays, each in its own way.
class OverlayController
{
public:
    OverlayController(const PlayerContext& context, PropController& props, QualityGovernor& quality);

    void toggle(Overlay overlay);

    /// Labels of new actors; inside a pass of the gate.
    void applyToLabels();
    void updateState();

private:
    PlayerContext m_context;
    PropController& m_props;
    QualityGovernor& m_quality;
    std::optional<bool> m_namesChosen;  ///< the module decides where unset
};

}  // namespace KivPlayer
