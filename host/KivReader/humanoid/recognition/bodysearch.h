#pragma once

#include <optional>

#include "host/KivReader/humanoid/recognition/limbpair.h"

namespace KivReader {

/// A pair of legs and a pair of arms on one trunk.
struct Body
{
    LimbPair legs, arms;
    double trunk = 0.0;  ///< from the legs' fork to the upper arms, along the bones
    double score = 0.0;
};

/// The likeliest one; none where there are no two pairs on a trunk.
std::optional<Body> findBody(const Evidence& evidence, const std::vector<LimbPair>& pairs);

}  // namespace KivReader
