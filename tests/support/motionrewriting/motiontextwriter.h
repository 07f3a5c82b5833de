#pragma once

#include <string>

#include "KivReader/motiondocument.h"

namespace KivTestSupport {

/// The document as a BVH text, with all the digits that its numbers have.
std::string motionTextOf(const KivReader::MotionDocument& document);

}  // namespace KivTestSupport
