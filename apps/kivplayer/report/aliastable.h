#pragma once

#include <map>
#include <string>

#include "apps/kivplayer/content/loadedactor.h"
#include "apps/kivplayer/support/console.h"

namespace KivPlayer {

/// Which joints of an actor's file were taken for which of a person's, as an alias table: a text that
/// somebody corrects and passes back with --profile. Joints that stand for nothing are listed, too.
std::string aliasTableOf(const LoadedActor& actor);

/// Writes the tables of all actors to one file, whole or not at all; what cannot be written is reported.
/// @param file "-" is stdout.
void writeAliasTable(const std::string& file, const std::map<unsigned, LoadedActor>& actors,
                     Console& console);

}  // namespace KivPlayer
