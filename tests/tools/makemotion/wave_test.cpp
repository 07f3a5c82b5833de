// A greeting with the right hand.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/tools/makemotion/motiontext.h"

namespace KivMotionTest {

namespace {

const MotionText& wave()
{
    return sample("wave.bvh");
}

TEST(Wave, standsOnFeetThatDoNotMove)
{
    for (const char* foot : {"LeftFoot", "RightFoot"})
        for (std::size_t f = 0; f < wave().frames(); ++f) {
            ASSERT_LT(length(wave().at(foot, f) - wave().at(foot, 0)), 0.1) << foot << " in frame " << f;
            ASSERT_NEAR(wave().at(foot, solePoints()[0], f).y, 0, 0.1) << foot << " in frame " << f;
        }
}

TEST(Wave, liftsTheRightHandToTheHeadAndLowersItAgain)
{
    const std::size_t last = wave().frames() - 1;
    double highest = 0;
    for (std::size_t f = 0; f <= last; ++f)
        highest = std::max(highest, wave().at("RightHand", f).y);
    EXPECT_LT(wave().at("RightHand", 0).y, 100);
    EXPECT_GT(highest, 145);
    EXPECT_LT(wave().at("RightHand", last).y, 100);
}

TEST(Wave, swingsTheHandToAndFroSeveralTimes)
{
    int turns = 0;
    double before = 0;
    for (std::size_t f = 1; f < wave().frames(); ++f) {
        const Point hand = wave().at("RightHandMiddle1", f);
        const double step = hand.x - wave().at("RightHandMiddle1", f - 1).x;
        if (hand.y > 150 && step * before < 0)
            ++turns;
        before = step;
    }
    EXPECT_GE(turns, 6);
}

TEST(Wave, showsThePalmToWhoeverIsGreeted)
{
    const std::size_t middle = wave().frames() / 2;
    const Point palm = wave().at("RightHand", {0, -1, 0}, middle) - wave().at("RightHand", middle);
    EXPECT_GT(palm.z, 0.8);
}

}  // namespace

}  // namespace KivMotionTest
