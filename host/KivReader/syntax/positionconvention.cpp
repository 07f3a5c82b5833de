#include "host/KivReader/syntax/positionconvention.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "host/KivReader/syntax/channelname.h"

namespace KivReader {

namespace {

constexpr std::size_t kFirstRows = 4;  ///< frame 0 alone may be a T-pose at the origin
constexpr double kNothing = 1e-6;      ///< an offset below this says nothing
constexpr double kAboutZero = 0.1;     ///< of the offset

enum class Evidence
{
    None,
    Replaces,
    Delta
};

/// Compares the first rows with the offset, in the components where there is an offset.
Evidence evidenceOf(const MotionDocument& document, const MotionDocument::Joint& joint)
{
    const std::size_t rows = std::min(document.frames, kFirstRows);
    double moved = 0.0;
    double rest = 0.0;
    for (std::size_t i = 0; i < joint.channels.size(); ++i) {
        if (!isPosition(joint.channels[i]))
            continue;
        const double offset = std::fabs(joint.offset[axisOf(joint.channels[i])]);
        if (offset < kNothing)
            continue;
        for (std::size_t row = 0; row < rows; ++row) {
            moved += std::fabs(document.values[row * document.columns + joint.firstColumn + i]);
            rest += offset;
        }
    }
    if (rest == 0.0)
        return Evidence::None;
    return moved <= kAboutZero * rest ? Evidence::Delta : Evidence::Replaces;
}

/// Joints below the root come from one exporter and agree; the root's own move may be as large as it likes.
bool mostBelowTheRootReplace(const std::vector<Evidence>& evidence)
{
    const auto replacing = std::count(evidence.begin() + 1, evidence.end(), Evidence::Replaces);
    const auto deltas = std::count(evidence.begin() + 1, evidence.end(), Evidence::Delta);
    return replacing > deltas;
}

}  // namespace

void detectPositionConvention(MotionDocument& document)
{
    std::vector<Evidence> evidence;
    evidence.reserve(document.joints.size());
    for (const MotionDocument::Joint& joint : document.joints)
        evidence.push_back(evidenceOf(document, joint));
    if (mostBelowTheRootReplace(evidence))
        return;
    for (std::size_t i = 0; i < evidence.size(); ++i)
        document.joints[i].positionsAreDeltas = evidence[i] == Evidence::Delta;
}

}  // namespace KivReader
