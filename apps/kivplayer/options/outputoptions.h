#pragma once

#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/options/optiontexts.h"

namespace KivPlayer {

/// Parses what is written, and in which format: picture, sequence or video; tables and scenes; the
/// comparison with a reference.
/// @throws CLI::Error that says what is wrong.
void parseOutput(const OptionTexts& texts, Options& options);

/// Parses what a contact sheet shows, and its size.
/// @throws CLI::Error that says what is wrong.
void parseSheet(const OptionTexts& texts, Options& options);

}  // namespace KivPlayer
