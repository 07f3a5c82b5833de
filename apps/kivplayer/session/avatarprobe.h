#pragma once

#include <string>

#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/support/console.h"

namespace KivPlayer {

class Session;

/// A damaged avatar can hang or crash the library that reads it. So one that the user brings is loaded by a
/// second process of this program first.

/// Seconds of the clock that loading an avatar may take.
constexpr int kAvatarSeconds = 5;

/// The option that makes this program a probe, followed by a run-time root and seconds.
constexpr const char* kProbeAvatar = "--probe-avatar";

/// The work of that second process: loads the avatar and nothing else; the system ends it when it takes
/// longer.
/// @return 0, whether the avatar was accepted or refused.
int probeAvatar(const std::string& root, const std::string& seconds);

/// Probes the avatar below a root directory in another process.
/// @param program one that takes kProbeAvatar.
/// @return empty when the process came to its end; otherwise what became of it.
std::string avatarProbeProblem(const std::string& root, int seconds, const std::string& program);

/// Starts a session with the shipped content, or with the root that the user gave, once its avatar was
/// probed. What is wrong is reported.
bool startSession(Session& session, const Options& options, Console& console);

}  // namespace KivPlayer
