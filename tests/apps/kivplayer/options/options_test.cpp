#include "apps/kivplayer/options/options.h"

#include <gmock/gmock.h>

#include "KivReader/humanoidprofile.h"
#include "tests/apps/kivplayer/options/commandline.h"

namespace {

using KivPlayer::Overlay;
using KivPlayer::Parsing;
using testing::HasSubstr;

INSTANTIATE_TEST_SUITE_P(
    CommandLine, RefusedOptions,
    testing::Values(
        Refused{"unknownOption", {"a.bvh", "--no-render", "--colour"}, "--colour"},
        Refused{"optionWithoutValue", {"a.bvh", "--output"}, "--output"},
        Refused{"emptyOutput", {"a.bvh", "--output", ""}, "nothing to do"},
        Refused{"negativeTime", {"a.bvh", "--output", "a.png", "--time", "-1"}, "--time"},
        Refused{"timeThatIsNoNumber", {"a.bvh", "--output", "a.png", "--time", "nan"}, "found \"nan\""},
        Refused{"timeWithAComma", {"a.bvh", "--output", "a.png", "--time", "1,5"}, "found \"1,5\""},
        Refused{"hexadecimalFrame", {"a.bvh", "--output", "a.png", "--frame", "0x10"}, "--frame"},
        Refused{"brokenFrame", {"a.bvh", "--output", "a.png", "--frame", "1.5"}, "--frame"},
        Refused{"rangeBackwards", {"a.bvh", "--output", "{frame}.png", "--range", "2,1"}, "--range"},
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
        Refused{"emptyProfile", {"a.bvh", "--no-render", "--profile", ""}, "--profile"},
        Refused{"quoteInATablesPath", {"a.bvh", "--no-render", "--profile", "my\"table"}, "double quotes"},
        Refused{"unknownUnit", {"a.bvh", "--no-render", "--unit", "furlong"}, "found \"furlong\""},
        Refused{"unitWithAComma", {"a.bvh", "--no-render", "--unit", "2,54"}, "--unit"},
        Refused{"unitOfZero", {"a.bvh", "--no-render", "--unit", "0"}, "above 0"},
        Refused{"unitThatSmugglesAWordIn", {"a.bvh", "--no-render", "--unit", "cm\" up=\"z"}, "--unit"},
        Refused{"axisThatIsNone", {"a.bvh", "--no-render", "--up", "w"}, "auto, x, -x, y, -y, z or -z"}),
    refusalName);

TEST(Options, takesEveryAxisAsUpright)
{
    for (const char* axis : {"x", "-x", "y", "-y", "z", "-z"}) {
        const Parsing parsing = parse({"a.bvh", "--no-render", "--up", axis});
        EXPECT_TRUE(parsing.options) << axis << ": " << parsing.error;
        EXPECT_TRUE(parse({"a.bvh", "--no-render", std::string("--up=") + axis}).options) << axis;
    }
}

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

TEST(Options, takesNoMotionForAThingToShow)
{
    const Parsing parsing = parse({"--output", "a.png", "--show", "com", "a.bvh"});
    ASSERT_TRUE(parsing.options) << parsing.error;
    EXPECT_THAT(parsing.options->motions, testing::ElementsAre("a.bvh"));
    EXPECT_TRUE(parsing.options->shown[Overlay::CentreOfMass]);
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
    EXPECT_FALSE(plain.options->shown[Overlay::CentreOfMass]);
    EXPECT_FALSE(plain.options->shown[Overlay::Contacts]);
    EXPECT_FALSE(plain.options->shown[Overlay::Skeleton]);
    EXPECT_FALSE(plain.options->shown.chosen(Overlay::Names)) << "the module decides";
    const Parsing asked =
        parse({"a.bvh", "--output", "a.png", "--show", "com,contacts,skeleton", "--hide", "grid,names"});
    ASSERT_TRUE(asked.options) << asked.error;
    EXPECT_TRUE(asked.options->shown[Overlay::CentreOfMass]);
    EXPECT_TRUE(asked.options->shown[Overlay::Contacts]);
    EXPECT_TRUE(asked.options->shown[Overlay::Skeleton]);
    EXPECT_FALSE(asked.options->shown[Overlay::Grid]);
    EXPECT_EQ(asked.options->shown.chosen(Overlay::Names), false);
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

}  // namespace
