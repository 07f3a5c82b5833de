#include "apps/kivplayer/support/softwaredrawing.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

TEST(SoftwareDrawing, takesOneThreadUnlessSomebodyHasChosen)
{
    setenv("LP_NUM_THREADS", "3", 1);
    KivPlayer::drawOnOneThread();
    EXPECT_STREQ(std::getenv("LP_NUM_THREADS"), "3");
    unsetenv("LP_NUM_THREADS");
    KivPlayer::drawOnOneThread();
    EXPECT_STREQ(std::getenv("LP_NUM_THREADS"), "0") << "none beside the one that draws";
}

}  // namespace
