#pragma once

#include <string>

#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/session/session.h"
#include "apps/kivplayer/support/console.h"

namespace KivPlayer {

/// Writes what --export asks for of the actors that are loaded. What goes wrong is said on the console.
void writeExports(const Options& options, const Session& session, Console& console);

}  // namespace KivPlayer
