#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "tests/support/builtpaths.h"

namespace KivTestSupport {

/// The folder of motion files that tests read, or an empty path where there is none: the variable
/// KIV_MOTION_LIBRARY, by default `../shared/bvh` beside the checkout.
inline std::filesystem::path motionLibrary()
{
    const char* named = std::getenv("KIV_MOTION_LIBRARY");
    const std::filesystem::path folder =
        named ? std::filesystem::path(named)
              : std::filesystem::path(KivTestSupport::kSourceFolder).parent_path() / "shared" / "bvh";
    return std::filesystem::is_directory(folder) ? folder : std::filesystem::path();
}

inline std::string readWholeFile(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

}  // namespace KivTestSupport

/// Skips the running test, and says why, where the motion library is missing.
#define KIV_REQUIRE_MOTION_LIBRARY()                                                                  \
    if (KivTestSupport::motionLibrary().empty())                                                      \
    GTEST_SKIP() << "the motion library is not here: set KIV_MOTION_LIBRARY to the folder that holds" \
                    " real/, synthetic/ and bad/"
