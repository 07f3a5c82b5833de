#include "apps/kivplayer/options/outputoptions.h"

#include <gmock/gmock.h>

#include "tests/apps/kivplayer/options/commandline.h"

namespace {

using KivPlayer::Parsing;

INSTANTIATE_TEST_SUITE_P(
    Output, RefusedOptions,
    testing::Values(
        Refused{"otherPictureFormat", {"a.bvh", "--output", "a.jpg"}, "ends in .png"},
        Refused{"numberedVideo", {"a.bvh", "--output", "{frame}.mp4"}, "one file"},
        Refused{"hastyGif", {"a.bvh", "--output", "a.gif", "--fps", "60"}, "at most 50"},
        Refused{"unknownField", {"a.bvh", "--output", "{time}.png"}, "{time}"},
        Refused{"openBrace", {"a.bvh", "--output", "{frame.png"}, "opening brace"},
        Refused{"momentsWithoutASheet", {"a.bvh", "--no-render", "--moments", "4"}, "--contact-sheet"},
        Refused{"noMoment", {"a.bvh", "--contact-sheet", "s", "--moments", "0"}, "1 to 16"},
        Refused{"unknownExport", {"a.bvh", "--export", "a.fbx"}, ".csv, .osgb or .osgt"}),
    refusalName);

TEST(OutputOptions, givesAContactSheetFourSmallMoments)
{
    const Parsing plain = parse({"a.bvh", "--contact-sheet", "sheets"});
    ASSERT_TRUE(plain.options) << plain.error;
    EXPECT_EQ(plain.options->moments, 4);
    EXPECT_LT(plain.options->width, 400);
    const Parsing large = parse({"a.bvh", "--contact-sheet", "sheets", "--resolution", "800,600"});
    ASSERT_TRUE(large.options) << large.error;
    EXPECT_EQ(large.options->width, 800);
}

TEST(OutputOptions, tellsAVideoByItsFileExtension)
{
    const Parsing video = parse({"a.bvh", "--output", "walk.MP4", "--fps", "24", "--range", "1,2"});
    ASSERT_TRUE(video.options) << video.error;
    EXPECT_EQ(video.options->format, KivPlayer::FileFormat::Mp4);
    EXPECT_TRUE(video.options->isMoving());
    EXPECT_EQ(video.options->fps, 24.0);
    EXPECT_EQ(video.options->width, 1280);
    const Parsing picture = parse({"a.bvh", "--output", "a.mp4.png"});
    ASSERT_TRUE(picture.options) << picture.error;
    EXPECT_EQ(picture.options->format, KivPlayer::FileFormat::Png);
    EXPECT_FALSE(picture.options->isMoving());
}

TEST(OutputOptions, makesGifsSmallAndTwentyFiveASecondUnlessTold)
{
    const Parsing plain = parse({"a.bvh", "--output", "a.gif"});
    ASSERT_TRUE(plain.options) << plain.error;
    EXPECT_EQ(plain.options->fps, 25.0);
    EXPECT_EQ(plain.options->width, 640);
    const Parsing told = parse({"a.bvh", "--output", "a.gif", "--fps", "50", "--resolution", "100,101"});
    ASSERT_TRUE(told.options) << told.error;
    EXPECT_EQ(told.options->fps, 50.0);
    EXPECT_EQ(told.options->height, 101);
}

TEST(OutputOptions, exportsSeveralFilesWithoutAPicture)
{
    const Parsing parsing =
        parse({"--export", "a.csv", "a.bvh", "--export", "a.OSGB", "--range", "0,1", "b.bvh"});
    ASSERT_TRUE(parsing.options) << parsing.error;
    EXPECT_THAT(parsing.options->exports, testing::ElementsAre("a.csv", "a.OSGB"));
    EXPECT_THAT(parsing.options->motions, testing::ElementsAre("a.bvh", "b.bvh"));
    EXPECT_FALSE(parsing.options->output);
}

TEST(OutputOptions, givesASequenceThirtyPicturesASecond)
{
    const Parsing parsing = parse({"a.bvh", "--output", "out/{frame:04}.png", "--range", "0.5,2"});
    ASSERT_TRUE(parsing.options) << parsing.error;
    EXPECT_EQ(parsing.options->fps, 30.0);
    EXPECT_EQ(parsing.options->range, std::make_pair(0.5, 2.0));
    EXPECT_TRUE(parsing.options->output->isSequence());
}

}  // namespace
