#pragma once

#include <vector>

#include "host/KivReader/humanoid/recognition/limbchain.h"

namespace KivReader {

/// Both chains of a pair of limbs, as legs or as arms.
struct PairFit
{
    LimbFit one, other;
    double score = 0.0;
    double symmetry = 0.0;  ///< 0 where both are as long; less the more they differ

    double length() const { return (one.length() + other.length()) / 2.0; }
};

/// Two chains from one fork that are about as long.
struct LimbPair
{
    std::size_t fork = 0;
    Chain one, other;
    PairFit asLegs, asArms;
    int sides = 0;  ///< joints of the first chain that are called left, less those called right, and the
                    ///< other way round for the second chain
};

/// All pairs that may be legs or arms of something; a bounded number, the longest ones.
std::vector<LimbPair> findPairs(const Evidence& evidence);

}  // namespace KivReader
