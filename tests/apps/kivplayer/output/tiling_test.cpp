#include "apps/kivplayer/output/tiling.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace {

using KivPlayer::tiled;

osg::ref_ptr<osg::Image> plain(int width, int height, unsigned char grey)
{
    osg::ref_ptr<osg::Image> image = new osg::Image;
    image->allocateImage(width, height, 1, GL_RGB, GL_UNSIGNED_BYTE, 1);
    std::fill_n(image->data(), image->getTotalSizeInBytes(), grey);
    return image;
}

TEST(Tiling, refusesNothingAndTilesOfDifferentSizes)
{
    EXPECT_THROW(tiled({}, 2), std::invalid_argument);
    EXPECT_THROW(tiled({plain(2, 2, 1)}, 0), std::invalid_argument);
    EXPECT_THROW(tiled({plain(2, 2, 1), plain(2, 3, 1)}, 2), std::invalid_argument);
}

TEST(Tiling, fillsRowsFromTheUpperLeftAndLeavesTheRestBlack)
{
    const auto sheet = tiled({plain(3, 2, 10), plain(3, 2, 20), plain(3, 2, 30)}, 2);
    ASSERT_EQ(sheet->s(), 6);
    ASSERT_EQ(sheet->t(), 4);
    EXPECT_EQ(*sheet->data(0, 3), 10);
    EXPECT_EQ(*sheet->data(5, 2), 20);
    EXPECT_EQ(*sheet->data(2, 0), 30);
    EXPECT_EQ(*sheet->data(3, 1), 0);
}

TEST(Tiling, isNoWiderThanItsTiles)
{
    EXPECT_EQ(tiled({plain(3, 2, 10)}, 4)->s(), 3);
}

TEST(Tiling, makesSheetsAboutSquare)
{
    EXPECT_EQ(KivPlayer::columnsForASquare(0, 100, 100), 1);
    EXPECT_EQ(KivPlayer::columnsForASquare(9, 100, 100), 3);
    EXPECT_EQ(KivPlayer::columnsForASquare(3, 1000, 300), 1);
    EXPECT_EQ(KivPlayer::columnsForASquare(27, 1000, 300), 3);
}

}  // namespace
