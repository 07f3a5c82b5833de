#include "apps/kivplayer/window/state/transport.h"

#include <gtest/gtest.h>

#include <cmath>

using KivPlayer::Transport;

namespace {

constexpr double kFrame = 0.1;

/// Of eleven frames.
Transport motion()
{
    Transport transport;
    transport.setMotion(1.0, kFrame);
    return transport;
}

}  // namespace

TEST(Transport, takesANegativeMotionForNone)
{
    Transport transport;
    transport.setMotion(-1.0, -0.1);
    EXPECT_EQ(transport.duration(), 0.0);
    EXPECT_EQ(transport.frameCount(), 1);
    transport.advance(5.0);
    EXPECT_EQ(transport.time(), 0.0);
    EXPECT_EQ(transport.frame(), 0);
}

TEST(Transport, keepsTimesInsideTheMotion)
{
    Transport transport = motion();
    transport.setTime(7.0);
    EXPECT_EQ(transport.time(), 1.0);
    transport.setTime(-7.0);
    EXPECT_EQ(transport.time(), 0.0);
    transport.setTime(0.9);
    transport.setMotion(0.5, kFrame);
    EXPECT_EQ(transport.time(), 0.5);
}

TEST(Transport, playsAtItsSpeedUnlessItPauses)
{
    Transport transport = motion();
    transport.setSpeed(2.0);
    transport.advance(0.2);
    EXPECT_NEAR(transport.time(), 0.4, 1e-12);
    transport.pause();
    transport.advance(0.2);
    EXPECT_NEAR(transport.time(), 0.4, 1e-12);
}

TEST(Transport, showsTheLastFrameAsLongAsEveryOtherWhenItLoops)
{
    Transport transport = motion();
    transport.advance(1.05);
    EXPECT_EQ(transport.frame(), 10);
    transport.advance(0.1);
    EXPECT_NEAR(transport.time(), 0.05, 1e-12);
    EXPECT_TRUE(transport.isPlaying());
}

TEST(Transport, endsAtTheLastFrameWithoutLoopAndPlaysFromTheFirstAgain)
{
    Transport transport = motion();
    transport.setLooping(false);
    transport.advance(3.0);
    EXPECT_EQ(transport.time(), 1.0);
    EXPECT_FALSE(transport.isPlaying());
    transport.play();
    EXPECT_EQ(transport.time(), 0.0);
    EXPECT_TRUE(transport.isPlaying());
}

TEST(Transport, stepsToWholeFramesAndPauses)
{
    Transport transport = motion();
    transport.setTime(0.37);
    transport.step(1);
    EXPECT_FALSE(transport.isPlaying());
    EXPECT_EQ(transport.frame(), 4);
    EXPECT_NEAR(transport.time(), 0.4, 1e-12);
    transport.step(-1);
    EXPECT_EQ(transport.frame(), 3);
    transport.step(-100);
    EXPECT_EQ(transport.frame(), 0);
    transport.step(100);
    EXPECT_EQ(transport.frame(), 10);
}

TEST(Transport, reachesEveryFrameInSpiteOfRounding)
{
    Transport transport;
    transport.setMotion(1000.0 / 30.0, 1.0 / 30.0);
    for (int frame = 0; frame <= 1000; ++frame) {
        transport.setTime(frame / 30.0);
        ASSERT_EQ(transport.frame(), frame);
    }
}

TEST(Transport, goesThroughItsSpeedsAndStopsAtTheirEnds)
{
    Transport transport = motion();
    transport.setSpeed(0.3);
    transport.faster();
    EXPECT_EQ(transport.speed(), 0.5);
    transport.setSpeed(0.3);
    transport.slower();
    EXPECT_EQ(transport.speed(), 0.25);
    for (int i = 0; i < 20; ++i)
        transport.slower();
    EXPECT_EQ(transport.speed(), Transport::kSpeeds.front());
    for (int i = 0; i < 20; ++i)
        transport.faster();
    EXPECT_EQ(transport.speed(), Transport::kSpeeds.back());
}
