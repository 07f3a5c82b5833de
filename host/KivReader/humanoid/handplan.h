#pragma once

#include <string>

#include "host/KivReader/humanoid/bodyplan.h"

namespace KivReader {

/// Turns a planned hand as its fingers say and gives it the avatar's fingers: the file's own, and what they
/// lack at the avatar's proportions.
void planHand(BodyPlan& plan, const BodySource& source, const osg::Quat& heading, const std::string& side);

}  // namespace KivReader
