#include "apps/kivplayer/content/runtimeroot.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

TEST(RuntimeRoot, isNamedEvenWhereThereIsNone)
{
    // Test programs have no content beside their folder.
    const std::filesystem::path root = KivPlayer::findRuntimeRoot();
    EXPECT_EQ(root.filename(), "root");
    EXPECT_EQ(root.parent_path(),
              std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path());
}

}  // namespace
