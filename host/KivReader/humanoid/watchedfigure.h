#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/KivReader/figure/figurepose.h"
#include "host/KivReader/humanoid/profiletable.h"

namespace KivReader {

/// A fitted figure in a sample of its poses, and what one sees of it there. Angles in degrees, lengths in
/// centimetres; medians over the poses where nothing else is said.
class WatchedFigure
{
public:
    WatchedFigure(const MotionDocument& document, const MotionFigure& figure, const RestFigure& avatar,
                  const std::vector<std::size_t>& leftOut);

    /// Whether it has all the joints that the questions below are about.
    bool isWhole() const;

    double soleOffLevel(const std::string& side) const;  ///< of feet as low as they get
    double leanOfHead() const;                           ///< against the trunk
    /// How far the front of one piece is turned away from that of another, about the other's upright axis.
    double angleBetweenFronts(const std::string& joint, const std::string& other) const;

    double kneesAhead(
        const std::string& side) const;         ///< share of the bent poses; 1 where there are hardly any
    double headBelowHips() const;               ///< share of the poses
    double limbsInTrunk(double heights) const;  ///< share of the poses: nearer to the spine than this

    double height() const { return m_height; }
    double lowestSole() const;           ///< over the ground; of twenty poses one may be lower
    double bellyAgainstHips() const;     ///< against the avatar's: 1 is as slim as that one
    double worstChangeOfLength() const;  ///< of a limb's bone, as a share of its length

private:
    std::size_t at(const std::string& name) const { return m_index.at(name); }
    bool has(const std::string& name) const { return m_index.count(name) > 0; }
    double usualDistance(const std::string& one, const std::string& other) const;
    bool isInTrunk(const Placements& pose, const std::string& joint, double distance) const;

    const MotionFigure& m_figure;
    const RestFigure& m_avatar;
    std::map<std::string, std::size_t> m_index;
    std::vector<Placements> m_poses;
    double m_height = 0.0;
};

}  // namespace KivReader
