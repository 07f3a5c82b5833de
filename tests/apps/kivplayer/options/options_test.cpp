#include "apps/kivplayer/options/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "KivReader/humanoidprofile.h"

namespace {

using KivPlayer::parseOptions;
using KivPlayer::Parsing;
using testing::HasSubstr;

Parsing parse(const std::vector<std::string>& arguments)
{
    std::vector<const char*> argv{"kivplayer"};
    for (const std::string& argument : arguments)
        argv.push_back(argument.c_str());
    return parseOptions(static_cast<int>(argv.size()), argv.data());
}

struct Refused
{
    const char* name;
    std::vector<std::string> arguments;
    const char* said;
};

class RefusedOptions : public testing::TestWithParam<Refused>
{
};

TEST_P(RefusedOptions, endsWithTwoAndOneLineThatSaysWhy)
{
    const Parsing parsing = parse(GetParam().arguments);
    EXPECT_FALSE(parsing.options);
    EXPECT_EQ(parsing.exitCode, 2);
    EXPECT_EQ(parsing.output, "");
    EXPECT_THAT(parsing.error, testing::StartsWith("kivplayer: error: "));
    EXPECT_THAT(parsing.error, HasSubstr(GetParam().said));
}

INSTANTIATE_TEST_SUITE_P(
    CommandLine, RefusedOptions,
    testing::Values(
        Refused{"noMotion", {"--output", "a.png"}, "at least one motion file"},
        Refused{"nothingToDo", {"a.bvh"}, "nothing to do"},
        Refused{"watchingWithoutAWindow", {"a.bvh", "--watch", "--output", "a.png"}, "needs the window"},
        Refused{"unknownOption", {"a.bvh", "--no-render", "--colour"}, "--colour"},
        Refused{"optionWithoutValue", {"a.bvh", "--output"}, "--output"},
        Refused{"otherPictureFormat", {"a.bvh", "--output", "a.jpg"}, "ends in .png"},
        Refused{"numberedVideo", {"a.bvh", "--output", "{frame}.mp4"}, "one file"},
        Refused{"timeOfAVideo", {"a.bvh", "--output", "a.mp4", "--time", "1"}, "--range FROM,TO"},
        Refused{"referenceOfAVideo", {"a.bvh", "--output", "a.mp4", "--reference", "r.png"}, "one picture"},
        Refused{"hastyGif", {"a.bvh", "--output", "a.gif", "--fps", "60"}, "at most 50"},
        Refused{"emptyOutput", {"a.bvh", "--output", ""}, "nothing to do"},
        Refused{"unknownField", {"a.bvh", "--output", "{time}.png"}, "{time}"},
        Refused{"openBrace", {"a.bvh", "--output", "{frame.png"}, "opening brace"},
        Refused{"negativeTime", {"a.bvh", "--output", "a.png", "--time", "-1"}, "--time"},
        Refused{"timeThatIsNoNumber", {"a.bvh", "--output", "a.png", "--time", "nan"}, "found \"nan\""},
        Refused{"timeWithAComma", {"a.bvh", "--output", "a.png", "--time", "1,5"}, "found \"1,5\""},
        Refused{"hexadecimalFrame", {"a.bvh", "--output", "a.png", "--frame", "0x10"}, "--frame"},
        Refused{"brokenFrame", {"a.bvh", "--output", "a.png", "--frame", "1.5"}, "--frame"},
        Refused{
            "timeAndFrame", {"a.bvh", "--output", "a.png", "--frame", "1", "--time", "1"}, "excludes --time"},
        Refused{"timeOfASequence", {"a.bvh", "--output", "{frame}.png", "--time", "1"}, "one picture"},
        Refused{"rangeOfAStill", {"a.bvh", "--output", "a.png", "--range", "0,1"}, "needs a video"},
        Refused{"rangeBackwards", {"a.bvh", "--output", "{frame}.png", "--range", "2,1"}, "--range"},
        Refused{"fpsOfAStill", {"a.bvh", "--output", "a.png", "--fps", "30"}, "needs a video"},
        Refused{"fpsOfZero", {"a.bvh", "--output", "{frame}.png", "--fps", "0"}, "above 0"},
        Refused{"oneSide", {"a.bvh", "--output", "a.png", "--resolution", "640"}, "W,H"},
        Refused{"sizeOfZero", {"a.bvh", "--output", "a.png", "--resolution", "0,480"}, "W,H"},
        Refused{"hugeSize", {"a.bvh", "--output", "a.png", "--resolution", "99999,480"}, "16384"},
        Refused{"brokenSize", {"a.bvh", "--output", "a.png", "--resolution", "640x480"}, "640x480"},
        Refused{"tooManySamples", {"a.bvh", "--output", "a.png", "--samples", "9"}, "1 to 8"},
        Refused{"unknownCamera", {"a.bvh", "--output", "a.png", "--camera", "top-left"}, "three-quarter"},
        Refused{"flatPosition", {"a.bvh", "--output", "a.png", "--camera-position", "1,2"}, "X,Y,Z"},
        Refused{"cameraInItsTarget",
                {"a.bvh", "--output", "a.png", "--camera-position", "1,2,3", "--camera-target", "1,2,3"},
                "a point other than"},
        Refused{
            "unknownThingToShow", {"a.bvh", "--output", "a.png", "--show", "com,bones"}, "found \"bones\""},
        Refused{"followNobody", {"a.bvh", "--output", "a.png", "--follow", "1"}, "0 for the first"},
        Refused{"moreNamesThanMotions",
                {"a.bvh", "--no-render", "--name", "A", "--name", "B"},
                "given 2 times for 1 motion"},
        Refused{"offsetOfNobody", {"a.bvh", "--no-render", "--offset", "1=2"}, "0 for the first"},
        Refused{"offsetOfANegativeActor", {"a.bvh", "--no-render", "--offset", "-1=2"}, "0 for the first"},
        Refused{"offsetByName",
                {"a.bvh", "--name", "Ann", "--no-render", "--offset", "Ann=2"},
                "such as 1=2.5, found \"Ann=2\""},
        Refused{"offsetWithoutAnActor", {"a.bvh", "--no-render", "--offset", "2.5"}, "ACTOR=SECONDS"},
        Refused{"offsetWithoutSeconds", {"a.bvh", "--no-render", "--offset", "0="}, "ACTOR=SECONDS"},
        Refused{"emptyOffset", {"a.bvh", "--no-render", "--offset", ""}, "ACTOR=SECONDS"},
        Refused{"offsetThatIsNoNumber", {"a.bvh", "--no-render", "--offset", "0=nan"}, "found \"0=nan\""},
        Refused{"infiniteOffset", {"a.bvh", "--no-render", "--offset", "0=-inf"}, "found \"0=-inf\""},
        Refused{"offsetWithAComma", {"a.bvh", "--no-render", "--offset", "0=1,5"}, "found \"0=1,5\""},
        Refused{"offsetOfYears", {"a.bvh", "--no-render", "--offset", "0=1e300"}, "at most 86400 seconds"},
        Refused{"twoOffsetsOfOneActor",
                {"a.bvh", "--no-render", "--offset", "0=1", "--offset", "0=1"},
                "one for an actor"},
        Refused{"sheetAndOffset", {"a.bvh", "--contact-sheet", "s", "--offset", "0=1"}, "excludes"},
        Refused{"emptyProfile", {"a.bvh", "--no-render", "--profile", ""}, "--profile"},
        Refused{"quoteInATablesPath", {"a.bvh", "--no-render", "--profile", "my\"table"}, "double quotes"},
        Refused{"unknownUnit", {"a.bvh", "--no-render", "--unit", "furlong"}, "found \"furlong\""},
        Refused{"unitWithAComma", {"a.bvh", "--no-render", "--unit", "2,54"}, "--unit"},
        Refused{"unitOfZero", {"a.bvh", "--no-render", "--unit", "0"}, "above 0"},
        Refused{"unitThatSmugglesAWordIn", {"a.bvh", "--no-render", "--unit", "cm\" up=\"z"}, "--unit"},
        Refused{"axisOfDepth", {"a.bvh", "--no-render", "--up", "x"}, "auto, y or z"},
        Refused{"momentsWithoutASheet", {"a.bvh", "--no-render", "--moments", "4"}, "--contact-sheet"},
        Refused{"noMoment", {"a.bvh", "--contact-sheet", "s", "--moments", "0"}, "1 to 16"},
        Refused{"sheetAndOutput", {"a.bvh", "--contact-sheet", "s", "--output", "a.png"}, "excludes"},
        Refused{"sheetAndReport", {"a.bvh", "--contact-sheet", "s", "--report", "-"}, "excludes"},
        Refused{"unknownExport", {"a.bvh", "--export", "a.fbx"}, ".csv, .osgb or .osgt"},
        Refused{"sheetAndExport", {"a.bvh", "--contact-sheet", "s", "--export", "a.csv"}, "excludes"},
        Refused{"quietAndVerbose", {"a.bvh", "--no-render", "--quiet", "--verbose"}, "--verbose"},
        Refused{"outputWithoutRendering", {"a.bvh", "--output", "a.png", "--no-render"}, "excludes --output"},
        Refused{"referenceOfASequence",
                {"a.bvh", "--output", "{frame}.png", "--reference", "r.png"},
                "compares one picture"}),
    [](const auto& example) { return example.param.name; });

TEST(Options, answersHelpAndVersionOnStdoutWithZero)
{
    for (const char* question : {"--help", "-h", "--version"}) {
        const Parsing parsing = parse({question});
        EXPECT_FALSE(parsing.options) << question;
        EXPECT_EQ(parsing.exitCode, 0) << question;
        EXPECT_EQ(parsing.error, "") << question;
        EXPECT_THAT(parsing.output, HasSubstr("kivplayer")) << question;
    }
}

TEST(Options, asksForTheKeysWithoutKnowingThem)
{
    const Parsing parsing = parse({"--help-keys"});
    EXPECT_FALSE(parsing.options);
    EXPECT_TRUE(parsing.asksForKeys);
    EXPECT_EQ(parsing.exitCode, 0);
    EXPECT_EQ(parsing.output + parsing.error, "");
    EXPECT_FALSE(parse({"a.bvh", "--no-render"}).asksForKeys);
}

TEST(Options, takesValuesAfterASpaceOrAnEqualsSign)
{
    for (const auto& arguments : {std::vector<std::string>{"a.bvh", "--output", "a.png", "--time", "1.5"},
                                  std::vector<std::string>{"a.bvh", "--output=a.png", "--time=1.5"}}) {
        const Parsing parsing = parse(arguments);
        ASSERT_TRUE(parsing.options) << parsing.error;
        EXPECT_EQ(parsing.options->output->name(0), "a.png");
        EXPECT_EQ(parsing.options->time, 1.5);
    }
}

TEST(Options, takesEverythingBehindTwoDashesAsAMotion)
{
    const Parsing parsing = parse({"--no-render", "--", "--odd.bvh", "b.bvh"});
    ASSERT_TRUE(parsing.options) << parsing.error;
    EXPECT_THAT(parsing.options->motions, testing::ElementsAre("--odd.bvh", "b.bvh"));
}

TEST(Options, keepsNamesInTheOrderOfTheMotions)
{
    const Parsing parsing = parse({"--name", "Ann", "a.bvh", "--name", "Bob", "b.bvh", "--no-render"});
    ASSERT_TRUE(parsing.options) << parsing.error;
    EXPECT_THAT(parsing.options->motions, testing::ElementsAre("a.bvh", "b.bvh"));
    EXPECT_THAT(parsing.options->names, testing::ElementsAre("Ann", "Bob"));
}

TEST(Options, startsTheActorsThatItIsToldLaterOrEarlier)
{
    const Parsing parsing =
        parse({"--offset", "1=2.5", "a.bvh", "b.bvh", "c.bvh", "--offset=0=-1", "--no-render"});
    ASSERT_TRUE(parsing.options) << parsing.error;
    EXPECT_THAT(parsing.options->motions, testing::ElementsAre("a.bvh", "b.bvh", "c.bvh"));
    EXPECT_THAT(parsing.options->offsets,
                testing::ElementsAre(testing::Pair(0, -1.0), testing::Pair(1, 2.5)));
}

TEST(Options, takesNoMotionForAThingToShow)
{
    const Parsing parsing = parse({"--output", "a.png", "--show", "com", "a.bvh"});
    ASSERT_TRUE(parsing.options) << parsing.error;
    EXPECT_THAT(parsing.options->motions, testing::ElementsAre("a.bvh"));
    EXPECT_TRUE(parsing.options->shown.centreOfMass);
}

TEST(Options, takesANegativeCameraPosition)
{
    const Parsing parsing = parse({"a.bvh", "--output", "a.png", "--camera-position", "-10,-200.5,5"});
    ASSERT_TRUE(parsing.options) << parsing.error;
    EXPECT_EQ(*parsing.options->cameraPosition, osg::Vec3d(-10.0, -200.5, 5.0));
}

TEST(Options, showsNeitherCentreOfMassNorContactsUnlessAsked)
{
    const Parsing plain = parse({"a.bvh", "--output", "a.png"});
    ASSERT_TRUE(plain.options) << plain.error;
    EXPECT_FALSE(plain.options->shown.centreOfMass);
    EXPECT_FALSE(plain.options->shown.contacts);
    EXPECT_FALSE(plain.options->shown.skeleton);
    EXPECT_FALSE(plain.options->shown.names) << "the module decides";
    const Parsing asked =
        parse({"a.bvh", "--output", "a.png", "--show", "com,contacts,skeleton", "--hide", "grid,names"});
    ASSERT_TRUE(asked.options) << asked.error;
    EXPECT_TRUE(asked.options->shown.centreOfMass);
    EXPECT_TRUE(asked.options->shown.contacts);
    EXPECT_TRUE(asked.options->shown.skeleton);
    EXPECT_FALSE(asked.options->shown.grid);
    EXPECT_EQ(asked.options->shown.names, false);
}

TEST(Options, makesSkeletonsFromElsewhereReadyUnlessTold)
{
    std::string problem;
    const Parsing plain = parse({"a.bvh", "--no-render"});
    ASSERT_TRUE(plain.options) << plain.error;
    const auto usual = KivReader::profileOptionsFrom(plain.options->reading, problem);
    EXPECT_EQ(usual.use, KivReader::ProfileOptions::Use::On);
    EXPECT_EQ(usual.tableFile, "");
    EXPECT_EQ(usual.unit, 0.0);
    EXPECT_FALSE(usual.firstFrameIsRest);
    const Parsing told = parse({"a.bvh", "--no-render", "--profile", "my tables/own.profile", "--unit",
                                "inch", "--up", "z", "--first-frame-is-rest"});
    ASSERT_TRUE(told.options) << told.error;
    const auto asked = KivReader::profileOptionsFrom(told.options->reading, problem);
    EXPECT_EQ(problem, "");
    EXPECT_EQ(asked.tableFile, "my tables/own.profile");
    EXPECT_EQ(asked.unit, 2.54);
    EXPECT_EQ(asked.up, KivReader::ProfileOptions::Up::Z);
    EXPECT_TRUE(asked.firstFrameIsRest);
    const Parsing off = parse({"a.bvh", "--no-render", "--profile", "off", "--unit", "5.5"});
    ASSERT_TRUE(off.options) << off.error;
    const auto none = KivReader::profileOptionsFrom(off.options->reading, problem);
    EXPECT_EQ(none.use, KivReader::ProfileOptions::Use::Off);
    EXPECT_EQ(none.unit, 5.5);
}

TEST(Options, givesAContactSheetFourSmallMoments)
{
    const Parsing plain = parse({"a.bvh", "--contact-sheet", "sheets"});
    ASSERT_TRUE(plain.options) << plain.error;
    EXPECT_EQ(plain.options->moments, 4);
    EXPECT_LT(plain.options->width, 400);
    const Parsing large = parse({"a.bvh", "--contact-sheet", "sheets", "--resolution", "800,600"});
    ASSERT_TRUE(large.options) << large.error;
    EXPECT_EQ(large.options->width, 800);
}

TEST(Options, givesASequenceThirtyPicturesASecond)
{
    const Parsing parsing = parse({"a.bvh", "--output", "out/{frame:04}.png", "--range", "0.5,2"});
    ASSERT_TRUE(parsing.options) << parsing.error;
    EXPECT_EQ(parsing.options->fps, 30.0);
    EXPECT_EQ(parsing.options->range, std::make_pair(0.5, 2.0));
    EXPECT_TRUE(parsing.options->output->isSequence());
}

TEST(Options, tellsAVideoByItsFileExtension)
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

TEST(Options, makesGifsSmallAndTwentyFiveASecondUnlessTold)
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

TEST(Options, exportsSeveralFilesWithoutAPicture)
{
    const Parsing parsing =
        parse({"--export", "a.csv", "a.bvh", "--export", "a.OSGB", "--range", "0,1", "b.bvh"});
    ASSERT_TRUE(parsing.options) << parsing.error;
    EXPECT_THAT(parsing.options->exports, testing::ElementsAre("a.csv", "a.OSGB"));
    EXPECT_THAT(parsing.options->motions, testing::ElementsAre("a.bvh", "b.bvh"));
    EXPECT_FALSE(parsing.options->output);
}

}  // namespace
