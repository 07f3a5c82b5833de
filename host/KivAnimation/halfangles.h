#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace KivAnimation {

/// Angles are worked off in blocks of this many, padded at the end: a trip count known to the compiler, free
/// of branches, is what makes it use the vector unit.
constexpr std::size_t kAngleBlock = 8;

/// An angle in full turns that sineAndCosine() can take: 0 for what is not finite, or too large to tell its
/// angle.
inline float usableAngle(float turns)
{
    constexpr float kTooLarge = 4194304.0f;
    return std::fabs(turns) < kTooLarge ? turns : 0.0f;
}

/// Sines and cosines of kAngleBlock angles, each within 1e-6.
/// @param turns usable angles.
inline void sineAndCosine(const float* turns, float* sines, float* cosines)
{
    // Adding and taking away 1.5 · 2^23 leaves the nearest whole number, in the ordinary rounding mode.
    constexpr float kRounder = 12582912.0f;
    constexpr float kPi = 3.14159265358979f;
    float s[kAngleBlock];
    float c[kAngleBlock];
    for (std::size_t i = 0; i < kAngleBlock; ++i) {
        const float whole = (turns[i] + kRounder) - kRounder;
        // Half the angle lies within a quarter turn, where the series are short; the double-angle rules do
        // the rest.
        const float x = kPi * (turns[i] - whole);
        const float y = x * x;
        const float sine =
            x * (1.0f +
                 y * (-1.0f / 6 +
                      y * (1.0f / 120 + y * (-1.0f / 5040 + y * (1.0f / 362880 + y * (-1.0f / 39916800))))));
        const float cosine =
            1.0f +
            y * (-0.5f +
                 y * (1.0f / 24 + y * (-1.0f / 720 +
                                       y * (1.0f / 40320 + y * (-1.0f / 3628800 + y * (1.0f / 479001600))))));
        s[i] = 2.0f * sine * cosine;
        c[i] = 1.0f - 2.0f * sine * sine;
    }
    std::copy_n(s, kAngleBlock, sines);
    std::copy_n(c, kAngleBlock, cosines);
}

}  // namespace KivAnimation
