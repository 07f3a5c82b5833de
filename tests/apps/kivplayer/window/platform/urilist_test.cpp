#include "apps/kivplayer/window/platform/nativewindow.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace KivPlayer;

TEST(UriList, leavesOutWhatIsNoLocalFile)
{
    EXPECT_TRUE(filesInUriList("").empty());
    EXPECT_TRUE(
        filesInUriList("https://example.org/walk.bvh\r\n# file:///a.bvh\r\nfile://nowhere\r\n").empty());
}

TEST(UriList, keepsSignsThatAreNoCode)
{
    EXPECT_EQ(filesInUriList("file:///100%.bvh"), std::vector<std::string>{"/100%.bvh"});
    EXPECT_EQ(filesInUriList("file:///a%2.bvh"), std::vector<std::string>{"/a%2.bvh"});
    EXPECT_EQ(filesInUriList("file:///a%zz.bvh"), std::vector<std::string>{"/a%zz.bvh"});
}

TEST(UriList, readsFilesInTheirOrder)
{
    const std::vector<std::string> expected{"/a b.bvh", "/tmp/c.bvh"};
    EXPECT_EQ(filesInUriList("file:///a%20b.bvh\r\nfile://localhost/tmp/c.bvh\r\n"), expected);
    EXPECT_EQ(filesInUriList("file:///a%20b.bvh\nfile:///tmp/c.bvh"), expected);
}
