#pragma once

/// A library that stands for a whole host program: it brings the module and the host's libraries along when
/// it is opened and takes them away when it is closed.
extern "C" {
/// Starts the manager on a run-time root, dresses an actor, removes it and shuts everything down.
/// @return 0, or the number of the step that failed.
__attribute__((visibility("default"))) int runProbe(const char* rootDir);
}
