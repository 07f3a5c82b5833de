#include "host/KivAnimation/halfangles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using KivAnimation::kAngleBlock;
using KivAnimation::sineAndCosine;

struct Values
{
    float sine;
    float cosine;
};

Values of(float turns)
{
    float angles[kAngleBlock];
    float sines[kAngleBlock];
    float cosines[kAngleBlock];
    for (float& angle : angles) {
        angle = KivAnimation::usableAngle(turns);
    }
    sineAndCosine(angles, sines, cosines);
    return {sines[kAngleBlock - 1], cosines[kAngleBlock - 1]};
}

TEST(HalfAngles, takeWhatIsNotAnAngleForNone)
{
    for (const float strange : {std::numeric_limits<float>::infinity(), std::nanf(""), 3e38f, -3e38f}) {
        EXPECT_EQ(of(strange).sine, 0.0f);
        EXPECT_EQ(of(strange).cosine, 1.0f);
    }
}

TEST(HalfAngles, areExactAtZero)
{
    EXPECT_EQ(of(0.0f).sine, 0.0f);
    EXPECT_EQ(of(0.0f).cosine, 1.0f);
}

TEST(HalfAngles, stayWithinAMillionthOverTwoTurnsEitherWay)
{
    constexpr double kTwoPi = 6.283185307179586;
    double worst = 0.0;
    for (int i = -200000; i <= 200000; ++i) {
        const float turns = static_cast<float>(i) * 1e-5f;
        const Values values = of(turns);
        worst = std::max(worst, std::fabs(values.sine - std::sin(kTwoPi * turns)));
        worst = std::max(worst, std::fabs(values.cosine - std::cos(kTwoPi * turns)));
    }
    EXPECT_LE(worst, 1e-6);
}

}  // namespace
