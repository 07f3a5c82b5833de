#pragma once

#include <optional>
#include <string>
#include <utility>

#include "apps/kivplayer/session/session.h"
#include "apps/kivplayer/support/progress.h"

namespace KivPlayer {

/// Writes what the actors do as one CSV table: a row for every frame of every actor's file, actors one below
/// the other; a column for every number. Positions are in the scene's frame, centimetres, Z up. Cells of what
/// an actor does not have are empty. Contacts are judged as they are for the overlays. Times are those of the
/// shared clock: an actor's offset moves its rows in time and changes nothing else in them; frames that lie
/// before the clock begins have no row. Nothing is drawn.
///
/// Poses the actors; no frame loop may run meanwhile.
/// @param range only frames whose time lies in it, seconds.
/// @return what went wrong, empty on success.
std::string writeMotionTable(const std::string& file, const Session& session,
                             const std::optional<std::pair<double, double>>& range, Progress& progress);

/// How many rows that table has.
unsigned long long rowsOfMotionTable(const Session& session,
                                     const std::optional<std::pair<double, double>>& range);

}  // namespace KivPlayer
