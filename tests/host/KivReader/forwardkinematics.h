#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "KivReader/motiondocument.h"

namespace KivReaderTest {

/// Where a document's joints stand in one of its frames, in the file's own frame and unit. Column vectors and
/// 3 × 3 matrices in double precision: shares nothing with what builds and poses skeletons.
std::vector<std::array<double, 3>> placesOf(const KivReader::MotionDocument& document, std::size_t frame);

}  // namespace KivReaderTest
