#pragma once

#include <vector>

#include "host/KivReader/humanoid/jointmatching.h"
#include "host/KivReader/humanoid/recognition/namehints.h"

namespace KivReader {

/// Where a table of dialects knows a joint, its word counts instead of what was understood of the name.
void applyTable(std::vector<NameHint>& hints, const JointMatching& table);

}  // namespace KivReader
