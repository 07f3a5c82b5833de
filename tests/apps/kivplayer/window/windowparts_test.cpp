#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/kivplayer/window/platform/nativewindow.h"
#include "apps/kivplayer/window/state/framepace.h"

using namespace KivPlayer;

namespace {

/// Frames of that length for so many seconds.
void draw(FramePace& pace, DetailChoice& detail, double milliseconds, double seconds)
{
    for (double passed = 0.0; passed < seconds; passed += milliseconds / 1000.0) {
        pace.note(milliseconds / 1000.0, 0.0);
        detail.judge(pace.times());
    }
}

}  // namespace

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

TEST(DetailChoice, leavesShadowsAwayOnlyWhereFramesStaySlow)
{
    FramePace pace;
    DetailChoice detail(true);
    draw(pace, detail, 200.0, 1.5);
    EXPECT_TRUE(detail.shadows());
    draw(pace, detail, 200.0, 3.0);
    EXPECT_FALSE(detail.shadows());
    draw(pace, detail, 60.0, 8.0);
    EXPECT_FALSE(detail.shadows()) << "shadows might take as much again";
    draw(pace, detail, 20.0, 8.0);
    EXPECT_TRUE(detail.shadows());
}

TEST(DetailChoice, obeysWhoeverHasDecided)
{
    FramePace pace;
    DetailChoice detail(true);
    detail.setShadows(true);
    draw(pace, detail, 300.0, 10.0);
    EXPECT_TRUE(detail.shadows());
    detail.setShadows(false);
    draw(pace, detail, 5.0, 10.0);
    EXPECT_FALSE(detail.shadows());
}

TEST(DetailChoice, goesFromFineToQuickOnASlowCard)
{
    FramePace pace;
    DetailChoice detail(false);
    draw(pace, detail, 10.0, 5.0);
    EXPECT_EQ(detail.detail(), StageDetail::Fine);
    draw(pace, detail, 50.0, 8.0);
    EXPECT_EQ(detail.detail(), StageDetail::Quick);
}

TEST(FramePace, tellsTheLongestSinceItBeganAnew)
{
    FramePace pace;
    pace.note(0.01, 0.2);
    pace.beginAnew();
    pace.note(0.01, 0.004);
    EXPECT_NEAR(pace.times().longestBetween, 4.0, 1e-9);
    EXPECT_NEAR(pace.times().longest, 14.0, 1e-9);
    EXPECT_EQ(pace.times().frames, 2u);
}
