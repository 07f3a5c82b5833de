#pragma once

#include "apps/kivplayer/options/overlays.h"

namespace KivPlayer {

class FramePublisher;
class Stage;

/// Shows or hides an overlay that is part of the scene; labels, draggers and panels are not, and are left to
/// commands and to the window. Between frames.
void applyOverlay(Overlay overlay, bool shown, Stage& stage, FramePublisher& publisher);

/// The same for every overlay.
void applyOverlays(const OverlaySet& shown, Stage& stage, FramePublisher& publisher);

}  // namespace KivPlayer
