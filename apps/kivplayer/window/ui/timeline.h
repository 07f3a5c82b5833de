#pragma once

#include "apps/kivplayer/window/state/transport.h"

namespace KivPlayer {

/// A line from the first to the last frame with a mark at every second, to be clicked and dragged; as wide as
/// the room that is left. Goes to whole frames.
/// @return whether the time was changed.
bool timeline(Transport& transport);

}  // namespace KivPlayer
