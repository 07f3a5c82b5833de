#include "apps/kivplayer/output/picturefile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>

namespace {

using KivPlayer::comparePictures;
using KivPlayer::readPicture;
using KivPlayer::writePicture;

osg::ref_ptr<osg::Image> gradient(int width, int height)
{
    osg::ref_ptr<osg::Image> image = new osg::Image;
    image->allocateImage(width, height, 1, GL_RGB, GL_UNSIGNED_BYTE, 1);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width * 3; ++x)
            image->data(0, static_cast<unsigned>(y))[x] = static_cast<unsigned char>((x + 7 * y) % 256);
    return image;
}

std::filesystem::path scratch(const std::string& name)
{
    const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "kivplayer-pictures";
    std::filesystem::create_directories(folder);
    return folder / name;
}

TEST(PictureFile, saysThatTheDiskIsFullAndLeavesNothingBehind)
{
    const std::filesystem::path file = scratch("full.png");
    std::filesystem::create_symlink("/dev/full", file.string() + ".part");
    EXPECT_THAT(writePicture(*gradient(400, 400), file.string()), testing::HasSubstr("No space left"));
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_FALSE(std::filesystem::is_symlink(file.string() + ".part"));
}

TEST(PictureFile, saysWhyAFolderCannotBeMade)
{
    std::ofstream(scratch("file"));
    EXPECT_THAT(writePicture(*gradient(4, 4), (scratch("file") / "a.png").string()),
                testing::HasSubstr("Not a directory"));
}

TEST(PictureFile, answersNullForWhatIsNoPicture)
{
    EXPECT_FALSE(readPicture(scratch("nobody.png").string()));
    const std::filesystem::path file = scratch("text.png");
    std::ofstream(file) << "HIERARCHY";
    EXPECT_FALSE(readPicture(file.string()));
}

TEST(PictureFile, readsBackWhatItWrote)
{
    const osg::ref_ptr<osg::Image> image = gradient(37, 21);
    const std::filesystem::path file = scratch("whole.png");
    ASSERT_EQ(writePicture(*image, file.string()), "");
    const osg::ref_ptr<osg::Image> back = readPicture(file.string());
    ASSERT_TRUE(back);
    const KivPlayer::PictureDifference difference = comparePictures(*image, *back);
    EXPECT_TRUE(difference.sameSize);
    EXPECT_EQ(difference.worstTile, 0.0);
}

TEST(PictureFile, tellsPicturesOfOtherSizesApart)
{
    EXPECT_FALSE(comparePictures(*gradient(8, 8), *gradient(8, 9)).sameSize);
}

TEST(PictureFile, measuresTheWorstTile)
{
    const osg::ref_ptr<osg::Image> one = gradient(40, 40);
    const osg::ref_ptr<osg::Image> other = gradient(40, 40);
    // A square of 8 x 8 pixels that differ by 64 inside one tile of 16 x 16.
    for (unsigned y = 16; y < 24; ++y)
        for (int x = 16 * 3; x < 24 * 3; ++x)
            other->data(0, y)[x] = static_cast<unsigned char>(one->data(0, y)[x] ^ 64);
    const KivPlayer::PictureDifference difference = comparePictures(*one, *other);
    EXPECT_NEAR(difference.worstTile, 64.0 * 64.0 / 256.0, 1e-9);
    EXPECT_EQ(difference.worstPixel, 64);
    EXPECT_EQ(*difference.image->data(20, 20), 255);
    EXPECT_EQ(*difference.image->data(0, 0), 0);
}

}  // namespace
