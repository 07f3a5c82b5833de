#pragma once

#include <string>

#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/support/console.h"

namespace KivPlayer {

class Session;

/// A damaged avatar can keep the reading library busy for ever, or end the program, before anything is handed
/// back. So one that the user brings is loaded by another process of this program first.

/// Seconds of the clock that loading an avatar may take.
constexpr int kAvatarSeconds = 5;

/// The word on the command line that asks for a trial, followed by a run-time root and seconds.
constexpr const char* kProbeAvatar = "--probe-avatar";

/// What that other process does: loads the avatar and nothing else, and is ended by the system when it takes
/// longer.
/// @return 0, whether the avatar was accepted or refused.
int probeAvatar(const std::string& root, const std::string& seconds);

/// Has another process try the avatar below a root directory.
/// @param program one whose command line understands kProbeAvatar.
/// @return empty when the process came to its end; otherwise what became of it.
std::string avatarProbeProblem(const std::string& root, int seconds, const std::string& program);

/// Starts a session with the shipped content, or with the root that the user gave, once its avatar was tried.
/// What is wrong is reported.
bool startSession(Session& session, const Options& options, Console& console);

}  // namespace KivPlayer
