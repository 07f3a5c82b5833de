// Where this build keeps what tests need. One object alone knows these paths, so that all others are the same
// in every checkout and a compiler cache shares them.
#pragma once

namespace KivTestSupport {

extern const char* const kSourceFolder;  ///< the root of the source tree
extern const char* const kRuntimeRoot;   ///< the folder that holds Data/
extern const char* const kLocales;       ///< for LOCPATH: holds a locale that writes decimal commas

}  // namespace KivTestSupport
