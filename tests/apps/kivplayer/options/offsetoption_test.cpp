#include "apps/kivplayer/options/offsetoption.h"

#include <gmock/gmock.h>

#include "tests/apps/kivplayer/options/commandline.h"

namespace {

using KivPlayer::Parsing;

INSTANTIATE_TEST_SUITE_P(
    Offsets, RefusedOptions,
    testing::Values(
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
                "one for an actor"}),
    refusalName);

TEST(OffsetOption, startsTheActorsThatItIsToldLaterOrEarlier)
{
    const Parsing parsing =
        parse({"--offset", "1=2.5", "a.bvh", "b.bvh", "c.bvh", "--offset=0=-1", "--no-render"});
    ASSERT_TRUE(parsing.options) << parsing.error;
    EXPECT_THAT(parsing.options->motions, testing::ElementsAre("a.bvh", "b.bvh", "c.bvh"));
    EXPECT_THAT(parsing.options->offsets,
                testing::ElementsAre(testing::Pair(0, -1.0), testing::Pair(1, 2.5)));
}

}  // namespace
