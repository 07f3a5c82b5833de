#pragma once

#include <map>

#include "host/KivReader/humanoid/posedbody.h"

namespace KivReader {

/// Per joint of the file: how its frame is turned, in the scene, while the person stands as the avatar.
using RestTurns = std::map<std::size_t, osg::Quat>;

/// The turns of all joints from the hips to the head, and to what the arms hang from.
RestTurns trunkTurns(const PosedBody& body);

/// What both joints hang from.
std::size_t commonAncestor(const MotionFigure& figure, std::size_t one, std::size_t other);

}  // namespace KivReader
