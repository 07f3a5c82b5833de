#include "apps/kivplayer/window/state/qualitygovernor.h"

#include <gtest/gtest.h>

using namespace KivPlayer;

namespace {

/// Frames of that length for so many seconds.
void draw(FramePace& pace, QualityGovernor& quality, double milliseconds, double seconds)
{
    for (double passed = 0.0; passed < seconds; passed += milliseconds / 1000.0) {
        pace.note(milliseconds / 1000.0, 0.0);
        quality.judge(pace.times());
    }
}

}  // namespace

TEST(QualityGovernor, leavesShadowsAwayOnlyWhereFramesStaySlow)
{
    FramePace pace;
    QualityGovernor quality;
    quality.start(true);
    draw(pace, quality, 200.0, 1.5);
    EXPECT_TRUE(quality.shadows());
    draw(pace, quality, 200.0, 3.0);
    EXPECT_FALSE(quality.shadows());
    draw(pace, quality, 60.0, 8.0);
    EXPECT_FALSE(quality.shadows()) << "shadows might take as much again";
    draw(pace, quality, 20.0, 8.0);
    EXPECT_TRUE(quality.shadows());
}

TEST(QualityGovernor, obeysWhoeverHasDecided)
{
    FramePace pace;
    QualityGovernor quality;
    quality.start(true);
    quality.setShadows(true);
    draw(pace, quality, 300.0, 10.0);
    EXPECT_TRUE(quality.shadows());
    quality.setShadows(false);
    draw(pace, quality, 5.0, 10.0);
    EXPECT_FALSE(quality.shadows());
}

TEST(QualityGovernor, goesFromFineToQuickOnASlowCard)
{
    FramePace pace;
    QualityGovernor quality;
    quality.start(false);
    draw(pace, quality, 10.0, 5.0);
    EXPECT_EQ(quality.detail(), StageDetail::Fine);
    draw(pace, quality, 50.0, 8.0);
    EXPECT_EQ(quality.detail(), StageDetail::Quick);
}
