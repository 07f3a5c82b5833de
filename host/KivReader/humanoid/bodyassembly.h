#pragma once

#include "host/KivReader/humanoid/bodyplan.h"

namespace KivReader {

/// The planned figure, its parents first and its hips on the way along first children. Which joints were
/// turned to the avatar's axes goes into the record.
MotionFigure assemble(const BodyPlan& plan, const BodySource& source, ProfileRecord& record);

/// Moves all of it up, in every frame.
void lift(MotionFigure& figure, double height);

}  // namespace KivReader
