#include "apps/kivplayer/output/supersampler.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <stdexcept>

namespace {

using namespace KivPlayer;

osg::ref_ptr<osg::Image> filled(int width, int height, unsigned char value)
{
    osg::ref_ptr<osg::Image> image = new osg::Image;
    image->allocateImage(width, height, 1, GL_RGB, GL_UNSIGNED_BYTE, 1);
    std::memset(image->data(), value, image->getTotalSizeInBytes());
    return image;
}

osg::ref_ptr<osg::Image> noise(int width, int height)
{
    osg::ref_ptr<osg::Image> image = filled(width, height, 0);
    std::mt19937 random(7);
    for (unsigned i = 0; i < image->getTotalSizeInBytes(); ++i)
        image->data()[i] = static_cast<unsigned char>(random() % 4 == 0 ? 255 : random() % 256);
    return image;
}

/// Of a picture of side × side samples a pixel, the frame that has the samples which lie so far aside.
osg::ref_ptr<osg::Image> frameAside(const osg::Image& samples, int side, const osg::Vec2d& aside)
{
    const auto step = [side](double pixels) { return static_cast<unsigned>((pixels + 0.5) * side); };
    osg::ref_ptr<osg::Image> frame = filled(samples.s() / side, samples.t() / side, 0);
    for (unsigned y = 0; y < static_cast<unsigned>(frame->t()); ++y)
        for (unsigned x = 0; x < static_cast<unsigned>(frame->s()); ++x)
            std::memcpy(frame->data(x, y),
                        samples.data(x * static_cast<unsigned>(side) + step(aside.x()),
                                     y * static_cast<unsigned>(side) + step(aside.y())),
                        3);
    return frame;
}

osg::ref_ptr<osg::Image> meanOfFrames(const osg::Image& samples, int side)
{
    Supersampler sampler;
    sampler.begin(side);
    osg::ref_ptr<osg::Image> picture;
    while (sampler.isBusy())
        picture = sampler.take(*frameAside(samples, side, sampler.offset()));
    return picture;
}

TEST(MeanOfSquares, refusesASideThatDoesNotDivide)
{
    EXPECT_THROW(meanOfSquares(*filled(10, 9, 0), 2), std::invalid_argument);
    EXPECT_THROW(meanOfSquares(*filled(10, 9, 0), 0), std::invalid_argument);
}

TEST(MeanOfSquares, keepsEveryEvenShadeAsItIs)
{
    for (int value = 0; value < 256; ++value) {
        const osg::ref_ptr<osg::Image> picture =
            meanOfSquares(*filled(6, 6, static_cast<unsigned char>(value)), 3);
        ASSERT_EQ(picture->s(), 2);
        ASSERT_EQ(*picture->data(1, 1), value);
    }
}

TEST(MeanOfSquares, isOfLightAndNotOfBytes)
{
    const osg::ref_ptr<osg::Image> samples = filled(2, 2, 0);
    std::memset(samples->data(0, 0), 255, 6);
    EXPECT_EQ(*meanOfSquares(*samples, 2)->data(0, 0), 188) << "half the light of white";
    const osg::ref_ptr<osg::Image> ninth = filled(3, 3, 0);
    std::memset(ninth->data(1, 1), 255, 3);
    EXPECT_EQ(*meanOfSquares(*ninth, 3)->data(0, 0), 94) << "a ninth of it";
}

TEST(Supersampler, isNotBusyUntilItBegins)
{
    EXPECT_FALSE(Supersampler().isBusy());
}

TEST(Supersampler, looksFromAllSidesAlike)
{
    for (int side = 1; side <= 4; ++side) {
        Supersampler sampler;
        sampler.begin(side);
        osg::Vec2d sum;
        int frames = 0;
        for (; sampler.isBusy(); ++frames) {
            sum += sampler.offset();
            sampler.take(*filled(2, 2, 9));
        }
        EXPECT_EQ(frames, side * side);
        EXPECT_LT(sum.length(), 1e-12);
    }
}

TEST(Supersampler, makesOfFramesToTheByteWhatOneLargerPictureGives)
{
    for (int side = 1; side <= 4; ++side) {
        const osg::ref_ptr<osg::Image> samples = noise(12 * side, 7 * side);
        const osg::ref_ptr<osg::Image> expected = meanOfSquares(*samples, side);
        const osg::ref_ptr<osg::Image> picture = meanOfFrames(*samples, side);
        ASSERT_TRUE(picture);
        for (unsigned i = 0; i < expected->getTotalSizeInBytes(); ++i)
            ASSERT_EQ(picture->data()[i], expected->data()[i]) << "byte " << i << ", side " << side;
    }
}

TEST(Supersampler, beginsAnewWhereTheSizeOfTheFramesChanges)
{
    Supersampler sampler;
    sampler.begin(2);
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(sampler.take(*filled(2, 2, 255)));
    osg::ref_ptr<osg::Image> picture;
    for (int i = 0; i < 4; ++i)
        picture = sampler.take(*filled(3, 2, 40));
    ASSERT_TRUE(picture);
    EXPECT_EQ(*picture->data(2, 1), 40);
}

TEST(Supersampler, takesMoreSamplesOfSmallPictures)
{
    EXPECT_EQ(defaultSupersampling(1024, 768), 3);
    EXPECT_EQ(defaultSupersampling(1280, 720), 2);
    EXPECT_EQ(defaultSupersampling(16384, 16384), 2);
}

}  // namespace
