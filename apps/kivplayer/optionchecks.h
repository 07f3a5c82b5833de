#pragma once

#include "options.h"
#include "optiontexts.h"

namespace KivPlayer {

/// Whether nothing is asked for that ends up in a file: what a window is for.
bool asksForNoFile(const Options& options);

/// Refuses options that do not go together.
/// @throws CLI::Error that says which and why.
void checkTogether(const Options& options, const OptionTexts& texts);

}  // namespace KivPlayer
