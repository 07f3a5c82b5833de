#pragma once

#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/support/console.h"
#include "apps/kivplayer/window/pendingcommands.h"
#include "apps/kivplayer/window/playedscene.h"
#include "apps/kivplayer/window/state/windowstate.h"

namespace KivPlayer {

/// What every part of the controller works with: the player's options, its session, the scene that is drawn
/// and the state that the panels read. All of it outlives the parts.
struct PlayerContext
{
    const Options& options;
    Console& console;
    Session& session;
    PendingCommands& commands;
    PlayedScene& scene;
    WindowState& state;
};

}  // namespace KivPlayer
