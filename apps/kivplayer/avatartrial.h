#pragma once

#include <string>

#include "console.h"

namespace KivPlayer {

class Session;

/// A damaged avatar can keep the reading library busy for ever, or end the program, before anything is handed
/// back. So one that the user brings is loaded by another process of this program first.

/// Seconds of the clock that loading an avatar may take.
constexpr int kAvatarSeconds = 5;

/// The word on the command line that asks for a trial, followed by a run-time root and seconds.
constexpr const char* kTryAvatar = "--try-avatar";

/// What that other process does: loads the avatar and nothing else, and is ended by the system when it takes
/// longer.
/// @return 0, whether the avatar was accepted or refused.
int tryAvatar(const std::string& root, const std::string& seconds);

/// This program, for another process of it.
constexpr const char* kThisProgram = "/proc/self/exe";

/// Has another process try the avatar below a root directory.
/// @return empty when the process came to its end; otherwise what became of it.
std::string avatarTrialProblem(const std::string& root, int seconds = kAvatarSeconds,
                               const std::string& program = kThisProgram);

/// Starts a session with the shipped content, or with the root that the user gave, once its avatar was tried.
/// What is wrong is reported.
bool startSession(Session& session, const std::string& givenRoot, Console& console,
                  const std::string& program = kThisProgram);

}  // namespace KivPlayer
