// Balls that fly as balls do.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/tools/makemotion/motiontext.h"
#include "tools/figure/restfigure.h"

namespace KivMotionTest {

namespace {

const MotionText& juggle()
{
    return sample("juggle.bvh");
}

constexpr double kGravity = 981;

/// Where a hand carries a ball.
Point palm(const std::string& side, std::size_t frame)
{
    const KivFigure::Offset& hold = KivFigure::findRestJoint(side + "Props")->offset;
    return juggle().at(side + "Hand", {hold[0], hold[1], hold[2]}, frame);
}

double fromNearestPalm(const Point& ball, std::size_t frame)
{
    return std::min(length(ball - palm("Left", frame)), length(ball - palm("Right", frame)));
}

/// Frames in which a ball is in no hand without a break.
struct Flight
{
    std::size_t first = 0, last = 0;
};

std::vector<Flight> flights(const std::string& ball)
{
    std::vector<Flight> found;
    bool before = false;
    for (std::size_t f = 0; f < juggle().frames(); ++f) {
        const bool free = fromNearestPalm(juggle().at(ball, f), f) > 0.01;
        if (free && !before)
            found.push_back({f, f});
        if (free)
            found.back().last = f;
        before = free;
    }
    return found;
}

constexpr const char* kBalls[] = {"LeftProps", "RightProps"};

TEST(Juggle, givesPositionsToTheBalls)
{
    for (const char* ball : kBalls) {
        const TextJoint& joint = juggle().joints()[juggle().find(ball)];
        EXPECT_EQ(joint.channels.size(), 6U);
        EXPECT_TRUE(joint.hasEnd);
    }
}

TEST(Juggle, throwsEachBallSixTimes)
{
    for (const char* ball : kBalls)
        EXPECT_EQ(flights(ball).size(), 6U) << ball;
}

TEST(Juggle, fliesOnParabolas)
{
    for (const char* ball : kBalls)
        for (const Flight& flight : flights(ball)) {
            const Point from = juggle().at(ball, flight.first), to = juggle().at(ball, flight.last);
            const double span = static_cast<double>(flight.last - flight.first) / 60;
            double highest = 0;
            for (std::size_t f = flight.first; f <= flight.last; ++f) {
                const double t = static_cast<double>(f - flight.first) / 60;
                const double u = t / span;
                const Point expected{from.x + (to.x - from.x) * u,
                                     from.y + (to.y - from.y) * u + 0.5 * kGravity * t * (span - t),
                                     from.z + (to.z - from.z) * u};
                ASSERT_LT(length(juggle().at(ball, f) - expected), 0.5) << ball << " in frame " << f;
                highest = std::max(highest, juggle().at(ball, f).y);
            }
            EXPECT_GT(highest, from.y + 20) << "a throw worth the name";
        }
}

TEST(Juggle, throwsFromOnePalmAndCatchesInTheOther)
{
    for (const char* ball : kBalls)
        for (const Flight& flight : flights(ball)) {
            // The ball moves up to 5 cm a frame: on either side of the flight it is in the palm.
            const std::size_t thrown = flight.first - 1, caught = flight.last + 1;
            const Point before = juggle().at(ball, thrown), after = juggle().at(ball, caught);
            const bool fromLeft = length(before - palm("Left", thrown)) < 3;
            const bool fromRight = length(before - palm("Right", thrown)) < 3;
            EXPECT_NE(fromLeft, fromRight);
            EXPECT_LT(length(after - palm(fromLeft ? "Right" : "Left", caught)), 3)
                << ball << " frame " << caught;
            const Point last = juggle().at(ball, flight.last);
            EXPECT_LT(length(last - palm(fromLeft ? "Right" : "Left", flight.last)), 6)
                << "a hand meets the ball";
        }
}

TEST(Juggle, neverJumpsABall)
{
    for (const char* ball : kBalls)
        for (std::size_t f = 1; f < juggle().frames(); ++f)
            ASSERT_LT(length(juggle().at(ball, f) - juggle().at(ball, f - 1)), 8)
                << ball << " in frame " << f;
}

TEST(Juggle, keepsTheBallsApart)
{
    for (std::size_t f = 0; f < juggle().frames(); ++f)
        ASSERT_GT(length(juggle().at(kBalls[0], f) - juggle().at(kBalls[1], f)), 10) << "in frame " << f;
}

TEST(Juggle, endsWithEachBallInItsOwnHand)
{
    const std::size_t last = juggle().frames() - 1;
    EXPECT_LT(length(juggle().at("LeftProps", last) - palm("Left", last)), 0.01);
    EXPECT_LT(length(juggle().at("RightProps", last) - palm("Right", last)), 0.01);
}

TEST(Juggle, turnsThePalmUpUnderABall)
{
    for (std::size_t f = 0; f < juggle().frames(); f += 10)
        for (const std::string side : {"Left", "Right"}) {
            const Point up = juggle().at(side + "Hand", {0, -1, 0}, f) - juggle().at(side + "Hand", f);
            ASSERT_GT(up.y, 0.85) << side << " in frame " << f;
        }
}

}  // namespace

}  // namespace KivMotionTest
