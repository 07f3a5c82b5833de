#pragma once

#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/support/console.h"

namespace KivPlayer {

/// Pictures every motion of the options by itself at moments spread evenly over it, a row each as NAME.png,
/// and all rows together as contact-sheet.png, in the options' folder. A motion that cannot be read is
/// reported and left out.
/// @throws std::runtime_error where nothing can be drawn on this machine.
ExitCode makeContactSheet(const Options& options, Console& console);

}  // namespace KivPlayer
