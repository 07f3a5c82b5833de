#pragma once

#include "apps/kivplayer/options/options.h"

namespace KivPlayer {

/// Sees to it that no output destroys an input. Looks at the disk: a file is the same under another name and
/// behind a link, too.
/// @throws CLI::Error that names the option, the output and the input where an output would be written over a
/// motion, a reference picture or an alias table of this command line, or over any motion file.
void protectInputs(const Options& options);

}  // namespace KivPlayer
