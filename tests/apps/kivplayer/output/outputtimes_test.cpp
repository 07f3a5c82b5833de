#include "apps/kivplayer/output/outputtimes.h"

#include <gtest/gtest.h>

namespace {

using namespace KivPlayer;

TEST(OutputTimes, areOnePictureAtLeast)
{
    Options options;
    EXPECT_EQ(outputTimes(options, 0.0).count, 1U);
    options.range = {5.0, 9.0};
    EXPECT_EQ(outputTimes(options, 2.0).count, 1U) << "the motion ends before the range begins";
}

TEST(OutputTimes, includeTheEndWhateverTheRoundingOfItsTime)
{
    Options options;
    options.fps = 10.0;
    const OutputTimes times = outputTimes(options, 0.1 + 0.1 + 0.1);
    EXPECT_EQ(times.count, 4U);
    EXPECT_DOUBLE_EQ(times.at(3), 0.3);
}

TEST(OutputTimes, keepToTheRangeAndToTheMotion)
{
    Options options;
    options.fps = 2.0;
    options.range = {1.0, 30.0};
    const OutputTimes times = outputTimes(options, 3.0);
    EXPECT_EQ(times.count, 5U);
    EXPECT_EQ(times.at(0), 1.0);
    EXPECT_EQ(times.at(4), 3.0);
}

TEST(StillTime, isTheTimeOrTheFrameOfTheFirstActorWhereverItStarts)
{
    Options options;
    EXPECT_EQ(stillTime(options, {}), 0.0);
    options.frame = 4;
    EXPECT_EQ(stillTime(options, {}), 0.0) << "nobody is there";
    LoadedActor actor;
    actor.document.frameTime = 0.5;
    actor.offset = -3.0;
    EXPECT_EQ(stillTime(options, {{7, actor}}), -1.0);
    options.time = 2.5;
    EXPECT_EQ(stillTime(options, {{7, actor}}), 2.5);
}

}  // namespace
