#pragma once

#include "KivReader/motiondocument.h"

namespace KivTestSupport {

/// Gives every joint the name of the one on the other side: of two names that are the same but for a word,
/// left in one and right in the other.
void exchangeSides(KivReader::MotionDocument& document);

}  // namespace KivTestSupport
