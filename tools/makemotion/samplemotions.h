// The sample motions that the project ships.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tools/makemotion/pose.h"

namespace KivMotion {

struct SampleMotion
{
    std::string fileName;
    Clip (*make)(const Rig&);
    bool withProps;
};

const std::vector<SampleMotion>& sampleMotions();

/// Writes every sample into the folder, which is made if it is missing. Throws std::runtime_error naming the
/// file that could not be written.
void writeSampleMotions(const std::filesystem::path& folder);

Clip makeWalk(const Rig& rig);
Clip makeWave(const Rig& rig);
Clip makePassLeft(const Rig& rig);
Clip makePassRight(const Rig& rig);
/// Needs a rig with props.
Clip makeJuggle(const Rig& rig);

}  // namespace KivMotion
