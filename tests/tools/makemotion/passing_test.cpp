// Two actors who share a stage.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/tools/makemotion/motiontext.h"

namespace KivMotionTest {

namespace {

const MotionText& left()
{
    return sample("pass_left.bvh");
}
const MotionText& right()
{
    return sample("pass_right.bvh");
}

Point gaze(const MotionText& motion, std::size_t frame)
{
    return motion.at("Head", {0, 0, 1}, frame) - motion.at("Head", frame);
}

TEST(Passers, lastEquallyLong)
{
    EXPECT_EQ(left().frames(), right().frames());
}

TEST(Passers, keepMoreThanSixtyCentimetresApart)
{
    for (std::size_t f = 0; f < left().frames(); ++f)
        ASSERT_GT(length(left().at("Hips", f) - right().at("Hips", f)), 60) << "in frame " << f;
}

TEST(Passers, touchEachOtherWithNoHand)
{
    for (std::size_t f = 0; f < left().frames(); ++f)
        for (const char* mine : {"LeftHandMiddle3", "RightHandMiddle3", "LeftForeArm", "RightForeArm"})
            for (const char* theirs : {"LeftHandMiddle3", "RightHandMiddle3", "LeftForeArm", "RightForeArm"})
                ASSERT_GT(length(left().at(mine, f) - right().at(theirs, f)), 15) << "in frame " << f;
}

TEST(Passers, reallyPassEachOther)
{
    const std::size_t last = left().frames() - 1;
    EXPECT_LT(left().at("Hips", 0).x, right().at("Hips", 0).x - 300);
    EXPECT_GT(left().at("Hips", last).x, right().at("Hips", last).x + 300);
    double nearest = 1e9;
    for (std::size_t f = 0; f <= last; ++f)
        nearest = std::min(nearest, length(left().at("Hips", f) - right().at("Hips", f)));
    EXPECT_LT(nearest, 120);
}

TEST(Passers, lookAtEachOtherBeforeTheyPass)
{
    double bestLeft = -1, bestRight = -1;
    for (std::size_t f = 0; f < left().frames(); ++f) {
        const Point apart = right().at("Head", f) - left().at("Head", f);
        if (apart.x < 0)
            break;
        bestLeft = std::max(bestLeft, dot(gaze(left(), f), apart) / length(apart));
        bestRight = std::max(bestRight, -dot(gaze(right(), f), apart) / length(apart));
    }
    // Within fifteen degrees.
    EXPECT_GT(bestLeft, 0.966);
    EXPECT_GT(bestRight, 0.966);
}

TEST(Passers, nod)
{
    for (const MotionText* motion : {&left(), &right()}) {
        double lowest = 1;
        for (std::size_t f = 0; f < motion->frames(); ++f)
            lowest = std::min(lowest, gaze(*motion, f).y);
        EXPECT_LT(lowest, gaze(*motion, 0).y - 0.12);
    }
}

}  // namespace

}  // namespace KivMotionTest
