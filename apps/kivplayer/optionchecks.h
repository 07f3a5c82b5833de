#pragma once

#include "options.h"
#include "optiontexts.h"

namespace KivPlayer {

/// Whether nothing is asked for that is made without a window.
bool asksForNoPicture(const Options& options);

/// Refuses options that do not go together.
/// @throws CLI::Error that says which and why.
void checkTogether(const Options& options, const OptionTexts& texts);

}  // namespace KivPlayer
