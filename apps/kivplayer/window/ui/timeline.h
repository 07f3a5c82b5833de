#pragma once

#include <optional>

#include "apps/kivplayer/window/state/transport.h"

namespace KivPlayer {

/// A line from the first to the last frame with a mark at every second, to be clicked and dragged; as wide as
/// the room that is left. Goes to whole frames.
/// @return the time that the user wants, seconds.
std::optional<double> drawTimeline(const Transport& transport);

}  // namespace KivPlayer
