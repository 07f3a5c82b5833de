#include "apps/kivplayer/window/state/viewarea.h"

#include <gtest/gtest.h>

using namespace KivPlayer;

TEST(ViewArea, neverShrinksToNothing)
{
    const ViewArea area{200, 50, 300, 92};
    EXPECT_EQ(area.width(), 1);
    EXPECT_EQ(area.height(), 1);
    EXPECT_EQ(area.aspect(), 1.0);
}

TEST(ViewArea, liesRightOfAndAboveThePanels)
{
    const ViewArea area{1000, 500, 200, 100};
    EXPECT_EQ(area.aspect(), 2.0);
    const osg::Vec4d clip = area.inClipSpace();
    EXPECT_NEAR(clip.x(), 0.2, 1e-12);
    EXPECT_NEAR(clip.y(), 0.2, 1e-12);
    EXPECT_NEAR(clip.z(), 0.8, 1e-12);
    EXPECT_NEAR(clip.w(), 0.8, 1e-12);
}

TEST(Rect, holdsItsCornerAndNotTheOneOpposite)
{
    const Rect rect{10, 20, 30, 40};
    EXPECT_TRUE(rect.contains(10, 20));
    EXPECT_FALSE(rect.contains(40, 60));
    EXPECT_FALSE(rect.contains(9, 30));
}
