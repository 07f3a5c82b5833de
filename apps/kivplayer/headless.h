#pragma once

#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/support/console.h"

namespace KivPlayer {

/// Does what the options ask for without a window: loads the motions, writes the report, renders and compares
/// pictures. What goes wrong is said on the console; the rest is still done.
ExitCode runHeadless(const Options& options, Console& console);

}  // namespace KivPlayer
