#include "apps/kivplayer/window/state/framepace.h"

#include <gtest/gtest.h>

using namespace KivPlayer;

TEST(FramePace, tellsTheLongestSinceItWasReset)
{
    FramePace pace;
    pace.note(0.01, 0.2);
    pace.reset();
    pace.note(0.01, 0.004);
    EXPECT_NEAR(pace.times().longestBetween, 4.0, 1e-9);
    EXPECT_NEAR(pace.times().longest, 14.0, 1e-9);
    EXPECT_EQ(pace.times().frames, 2u);
}
