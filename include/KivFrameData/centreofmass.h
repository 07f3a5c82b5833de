#pragma once

#include <osg/Vec3d>

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "KivCommonDef/sharedlibrary.h"

namespace KivFrameData {

/// Where a body's weight is: the segments' masses and centres after P. de Leva, "Adjustments to
/// Zatsiorsky-Seluyanov's segment inertia parameters", Journal of Biomechanics 29 (1996), the mean of the two
/// sexes.
///
/// Knows a skeleton by its joints' names (without qualifier); joints that are missing leave their segment
/// out, and the masses of the others make the whole.
class KIV_FRAMEDATA_API CentreOfMass
{
public:
    explicit CentreOfMass(const std::vector<std::string>& joints);

    /// A trunk and both thighs at least: less says nothing about a body.
    bool isKnown() const { return m_complete; }

    /// @param positions one for every joint, in any frame and unit.
    /// @return in the same frame and unit; nothing where isKnown() is false.
    std::optional<osg::Vec3d> of(const std::vector<osg::Vec3d>& positions) const;

private:
    /// A segment between two points, each the mean of up to two joints.
    struct Segment
    {
        std::array<std::size_t, 2> from{};
        std::array<std::size_t, 2> to{};
        double mass = 0.0;
        double centre = 0.0;  ///< from the first point to the second, 0..1
    };

    std::vector<Segment> m_segments;
    double m_mass = 0.0;
    bool m_complete = false;
};

}  // namespace KivFrameData
