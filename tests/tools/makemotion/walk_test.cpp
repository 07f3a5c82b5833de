// Feet that walk: they stand still while they carry, and only then.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/tools/makemotion/motiontext.h"

namespace KivMotionTest {

namespace {

/// Frames in which a foot is flat on the ground without a break.
struct Stance
{
    std::size_t first = 0, last = 0;
};

double lowestOfSole(const MotionText& motion, const std::string& foot, std::size_t frame)
{
    double lowest = 1e9;
    for (const Point& point : solePoints())
        lowest = std::min(lowest, motion.at(foot, point, frame).y);
    return lowest;
}

bool isFlat(const MotionText& motion, const std::string& foot, std::size_t frame)
{
    const auto& sole = solePoints();
    return std::abs(motion.at(foot, sole[0], frame).y) < 0.3 &&
           std::abs(motion.at(foot, sole[1], frame).y) < 0.3;
}

std::vector<Stance> stances(const MotionText& motion, const std::string& foot)
{
    std::vector<Stance> found;
    bool before = false;
    for (std::size_t f = 0; f < motion.frames(); ++f) {
        const bool flat = isFlat(motion, foot, f);
        if (flat && !before)
            found.push_back({f, f});
        if (flat)
            found.back().last = f;
        before = flat;
    }
    return found;
}

class Walkers : public testing::TestWithParam<const char*>
{
protected:
    const MotionText& motion() const { return sample(GetParam()); }
};

constexpr const char* kFeet[] = {"LeftFoot", "RightFoot"};

TEST_P(Walkers, takeAtLeastFourStepsWithEitherFoot)
{
    for (const char* foot : kFeet)
        EXPECT_GE(stances(motion(), foot).size(), 5U) << foot;
}

TEST_P(Walkers, coverFourMetresAndMore)
{
    EXPECT_GT(length(motion().at("Hips", motion().frames() - 1) - motion().at("Hips", 0)), 400);
}

TEST_P(Walkers, slideNoPlantedFoot)
{
    for (const char* foot : kFeet)
        for (const Stance& stance : stances(motion(), foot)) {
            EXPECT_GE(stance.last - stance.first, 10U)
                << foot << " only brushes the ground at " << stance.first;
            for (std::size_t f = stance.first; f <= stance.last; ++f) {
                const Point joint = motion().at(foot, f) - motion().at(foot, stance.first);
                ASSERT_LE(length(joint), 0.5) << foot << " in frame " << f;
                for (const Point& point : solePoints())
                    ASSERT_LE(length(motion().at(foot, point, f) - motion().at(foot, point, stance.first)),
                              0.8)
                        << foot << " in frame " << f;
            }
        }
}

TEST_P(Walkers, rollOverAToeThatStaysInPlace)
{
    const Point toe{0, -8.5, 13.5};
    for (const char* foot : kFeet)
        for (const Stance& stance : stances(motion(), foot))
            for (std::size_t f = stance.last; f < motion().frames(); ++f) {
                if (motion().at(foot, toe, f).y > 0.05)
                    break;
                ASSERT_LE(length(motion().at(foot, toe, f) - motion().at(foot, toe, stance.last)), 0.5)
                    << foot << " in frame " << f;
            }
}

TEST_P(Walkers, landOnTheHeel)
{
    for (const char* foot : kFeet) {
        const std::vector<Stance> found = stances(motion(), foot);
        for (std::size_t i = 1; i + 1 < found.size(); ++i) {
            std::size_t touch = found[i].first;
            while (motion().at(foot, solePoints()[0], touch - 1).y < 0.3)
                --touch;
            EXPECT_GT(motion().at(foot, solePoints()[1], touch).y, 2) << foot << " at frame " << touch;
        }
    }
}

TEST_P(Walkers, alwaysHaveAFootOnTheGround)
{
    for (std::size_t f = 0; f < motion().frames(); ++f)
        ASSERT_LT(std::min(lowestOfSole(motion(), kFeet[0], f), lowestOfSole(motion(), kFeet[1], f)), 0.3)
            << "in frame " << f;
}

TEST_P(Walkers, liftTheSwingingFootClearOfTheGround)
{
    for (const char* foot : kFeet) {
        const std::vector<Stance> found = stances(motion(), foot);
        for (std::size_t i = 1; i < found.size(); ++i) {
            // The middle third of the way in space.
            const Point from = motion().at(foot, found[i - 1].last), to = motion().at(foot, found[i].first);
            for (std::size_t f = found[i - 1].last; f < found[i].first; ++f) {
                const double gone = dot(motion().at(foot, f) - from, to - from) / dot(to - from, to - from);
                if (gone > 0.33 && gone < 0.67) {
                    ASSERT_GT(lowestOfSole(motion(), foot, f), 0.8) << foot << " in frame " << f;
                }
            }
        }
    }
}

TEST_P(Walkers, moveThePelvisWithoutAJerk)
{
    for (std::size_t f = 2; f < motion().frames(); ++f) {
        const Point a = motion().at("Hips", f - 2), b = motion().at("Hips", f - 1),
                    c = motion().at("Hips", f);
        const Point change = (c - b) - (b - a);
        ASSERT_LT(length(change) * 3600, 1500) << "cm/s² in frame " << f;
    }
}

INSTANTIATE_TEST_SUITE_P(MakeMotion, Walkers, testing::Values("walk.bvh", "pass_left.bvh", "pass_right.bvh"),
                         [](const auto& named) {
                             const std::string name = named.param;
                             return name.substr(0, name.find('.'));
                         });

}  // namespace

}  // namespace KivMotionTest
