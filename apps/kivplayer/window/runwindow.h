#pragma once

#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/support/console.h"

namespace KivPlayer {

/// Whether there is a display to open a window on.
bool displayThere();

/// Shows the motions in a window until it is closed.
ExitCode runWindow(const Options& options, Console& console);

}  // namespace KivPlayer
