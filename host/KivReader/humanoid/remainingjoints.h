#pragma once

#include "host/KivReader/humanoid/bodyplan.h"

namespace KivReader {

/// Says in the record what became of every joint of the file's, and adds to the plan those that are none of
/// the avatar's and not between two of them: so nothing of the file's is lost.
void planRemainingJoints(BodyPlan& plan, const BodySource& source, ProfileRecord& record);

}  // namespace KivReader
