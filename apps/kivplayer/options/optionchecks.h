#pragma once

#include <string>

#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/options/optiontexts.h"

namespace KivPlayer {

/// @throws CLI::Error that says what an option expects and what was given.
[[noreturn]] void throwUnexpected(const std::string& option, const std::string& wanted,
                                  const std::string& given);

/// The number that an option was given.
/// @throws CLI::Error where there is none, or one below the least.
double numberIn(const std::string& option, const std::string& text, const std::string& wanted, double least);

/// Whether nothing is asked for that is made without a window.
bool asksForNoPicture(const Options& options);

/// Refuses options that do not go together.
/// @throws CLI::Error that says which and why.
void checkTogether(const Options& options, const OptionTexts& texts);

}  // namespace KivPlayer
