#pragma once

#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/options/optiontexts.h"

namespace KivPlayer {

/// Parses when the actors start.
/// @throws CLI::Error that says what is wrong.
void parseOffsets(const OptionTexts& texts, Options& options);

}  // namespace KivPlayer
