#pragma once

#include <functional>
#include <vector>

#include "KivReader/humanoidprofile.h"
#include "host/KivReader/humanoid/restpose.h"

namespace KivReader {

/// A pose that the avatar may be put onto.
struct RestCandidate
{
    std::function<RestPose(const PosedBody&)> make;
    ProfileRecord::RestPose told;
};

/// The most plausible first; what the options ask for stands alone. There is one at least.
std::vector<RestCandidate> restCandidates(const PosedBody& body, const ProfileOptions& options);

}  // namespace KivReader
