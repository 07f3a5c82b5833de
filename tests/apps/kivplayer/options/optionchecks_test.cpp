#include "apps/kivplayer/options/optionchecks.h"

#include <gmock/gmock.h>

#include "tests/apps/kivplayer/options/commandline.h"

namespace {

using KivPlayer::Parsing;

INSTANTIATE_TEST_SUITE_P(
    Together, RefusedOptions,
    testing::Values(
        Refused{"noMotion", {"--output", "a.png"}, "at least one motion file"},
        Refused{"nothingToDo", {"a.bvh"}, "nothing to do"},
        Refused{"watchingWithoutAWindow", {"a.bvh", "--watch", "--output", "a.png"}, "needs the window"},
        Refused{"timeOfAVideo", {"a.bvh", "--output", "a.mp4", "--time", "1"}, "--range FROM,TO"},
        Refused{"referenceOfAVideo", {"a.bvh", "--output", "a.mp4", "--reference", "r.png"}, "one picture"},
        Refused{
            "timeAndFrame", {"a.bvh", "--output", "a.png", "--frame", "1", "--time", "1"}, "excludes --time"},
        Refused{"timeOfASequence", {"a.bvh", "--output", "{frame}.png", "--time", "1"}, "one picture"},
        Refused{"rangeOfAStill", {"a.bvh", "--output", "a.png", "--range", "0,1"}, "needs a video"},
        Refused{"fpsOfAStill", {"a.bvh", "--output", "a.png", "--fps", "30"}, "needs a video"},
        Refused{"moreNamesThanMotions",
                {"a.bvh", "--no-render", "--name", "A", "--name", "B"},
                "given 2 times for 1 motion"},
        Refused{"sheetAndOffset", {"a.bvh", "--contact-sheet", "s", "--offset", "0=1"}, "excludes"},
        Refused{"sheetAndOutput", {"a.bvh", "--contact-sheet", "s", "--output", "a.png"}, "excludes"},
        Refused{"sheetAndReport", {"a.bvh", "--contact-sheet", "s", "--report", "-"}, "excludes"},
        Refused{"sheetAndExport", {"a.bvh", "--contact-sheet", "s", "--export", "a.csv"}, "excludes"},
        Refused{"quietAndVerbose", {"a.bvh", "--no-render", "--quiet", "--verbose"}, "--verbose"},
        Refused{"outputWithoutRendering", {"a.bvh", "--output", "a.png", "--no-render"}, "excludes --output"},
        Refused{"referenceOfASequence",
                {"a.bvh", "--output", "{frame}.png", "--reference", "r.png"},
                "compares one picture"}),
    refusalName);

TEST(OptionChecks, acceptAnEmptyWindowWhereThereIsADisplay)
{
    const char* const program = "kivplayer";
    EXPECT_FALSE(KivPlayer::parseOptions(1, &program, false).options);
    const Parsing parsing = KivPlayer::parseOptions(1, &program, true);
    ASSERT_TRUE(parsing.options) << parsing.error;
    EXPECT_TRUE(parsing.options->window);
}

TEST(OptionChecks, letReportAndExportDoWithoutAPicture)
{
    for (const char* option :
         {"--report=a.json", "--export=a.csv", "--write-profile=a.profile", "--no-render"})
        EXPECT_TRUE(parse({"a.bvh", option}).options) << option;
    EXPECT_TRUE(parse({"a.bvh", "--export", "a.csv", "--range", "0,1"}).options);
}

}  // namespace
