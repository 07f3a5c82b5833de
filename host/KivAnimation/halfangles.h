#pragma once

#include <cmath>
#include <cstddef>

namespace KivAnimation {

/// Angles are worked off in blocks of this many, padded at the end: a trip count known to the compiler is
/// what makes it use the vector unit.
constexpr std::size_t kAngleBlock = 8;

/// Sine and cosine of kAngleBlock angles, each within 1e-6.
/// @param turns the angles in full turns; what is not finite, or too large to tell its angle, counts as 0.
inline void sineAndCosine(const float* turns, float* sine, float* cosine)
{
    // Adding and taking away 1.5 · 2^23 leaves the nearest whole number, in the ordinary rounding mode.
    constexpr float kRounder = 12582912.0f;
    constexpr float kPi = 3.14159265358979f;
    for (std::size_t i = 0; i < kAngleBlock; ++i) {
        const float whole = (turns[i] + kRounder) - kRounder;
        const float rest = turns[i] - whole;
        // Half the angle lies within a quarter turn, where the series are short; the double-angle rules do
        // the rest.
        const float x = kPi * (std::fabs(rest) <= 0.5f ? rest : 0.0f);
        const float square = x * x;
        const float s =
            x * (1.0f + square * (-1.0f / 6 +
                                  square * (1.0f / 120 + square * (-1.0f / 5040 +
                                                                   square * (1.0f / 362880 +
                                                                             square * (-1.0f / 39916800))))));
        const float c =
            1.0f +
            square * (-0.5f +
                      square * (1.0f / 24 +
                                square * (-1.0f / 720 +
                                          square * (1.0f / 40320 + square * (-1.0f / 3628800 +
                                                                             square * (1.0f / 479001600))))));
        sine[i] = 2.0f * s * c;
        cosine[i] = 1.0f - 2.0f * s * s;
    }
}

}  // namespace KivAnimation
