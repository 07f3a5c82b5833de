#pragma once

#include <string>

#include "host/KivReader/humanoid/trunkrest.h"

namespace KivReader {

/// Adds the turns of one side's thigh, shin and foot, with the hips' already there.
void addLegTurns(RestTurns& turns, const PosedBody& body, const std::string& side);

/// Adds the turns of one side's upper arm, forearm and hand, with those of what the arms hang from already
/// there.
void addArmTurns(RestTurns& turns, const PosedBody& body, const std::string& side);

/// The middle of how a joint is turned against another over all poses: from the joint's frame to the other's.
osg::Quat meanTurnAgainst(const PosedBody& body, std::size_t joint, std::size_t other);

}  // namespace KivReader
