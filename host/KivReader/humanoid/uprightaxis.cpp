#include "host/KivReader/humanoid/uprightaxis.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

namespace KivReader {

namespace {

constexpr double kUpright = 0.5;           ///< cosine: figures that stand are no farther from upright
constexpr double kClearly = 1.5;           ///< one axis over the next
constexpr std::size_t kTellingPoses = 10;  ///< fewer may show somebody who lies or bows

constexpr double kHardlyElse = 0.8;   ///< share of the poses
constexpr double kOnFromTrunk = 0.7;  ///< cosine: legs of a standing figure are no farther from it

constexpr std::array<UpAxis, 6> kAxes = {UpAxis::Y,      UpAxis::Z,      UpAxis::X,
                                         UpAxis::MinusY, UpAxis::MinusZ, UpAxis::MinusX};
constexpr std::array<const char*, 6> kNames = {"y", "z", "x", "-y", "-z", "-x"};

/// From between the feet to between the arms, length 1.
osg::Vec3d upright(const Placements& pose, const JointMatching& matching)
{
    const bool hasFeet = matching.has("LeftFoot") && matching.has("RightFoot");
    osg::Vec3d up = middle(pose, matching, "LeftArm", "RightArm") -
                    (hasFeet ? middle(pose, matching, "LeftFoot", "RightFoot")
                             : middle(pose, matching, "LeftLeg", "RightLeg"));
    up.normalize();
    return up;
}

/// Whether the legs go on from the trunk, straight, as a standing figure's do. With all channels 0 they may
/// point anywhere.
bool isStanding(const Placements& pose, const JointMatching& matching)
{
    const auto between = [&](const std::string& from, const std::string& to) {
        osg::Vec3d way = pose[matching.at(to)].place - pose[matching.at(from)].place;
        way.normalize();
        return way;
    };
    osg::Vec3d trunk =
        middle(pose, matching, "LeftArm", "RightArm") - middle(pose, matching, "LeftUpLeg", "RightUpLeg");
    trunk.normalize();
    const auto isLegOn = [&](const std::string& side) {
        const osg::Vec3d thigh = between(side + "UpLeg", side + "Leg");
        const bool hasFoot = matching.has(side + "Foot");
        return thigh * trunk < -kOnFromTrunk &&
               (!hasFoot || between(side + "Leg", side + "Foot") * thigh > kOnFromTrunk);
    };
    return isLegOn("Left") && isLegOn("Right");
}

/// How far the poses stand along the axis: the median of the cosines.
double standingAlong(const std::vector<osg::Vec3d>& uprights, UpAxis up)
{
    std::vector<double> cosines;
    for (const osg::Vec3d& v : uprights)
        cosines.push_back(inScene({v.x(), v.z(), -v.y()}, up).z());
    const auto median = cosines.begin() + static_cast<std::ptrdiff_t>(cosines.size() / 2);
    std::nth_element(cosines.begin(), median, cosines.end());
    return *median;
}

/// The share of poses that stand along the axis.
double shareAlong(const std::vector<osg::Vec3d>& uprights, UpAxis up)
{
    const auto standing = std::count_if(uprights.begin(), uprights.end(), [&](const osg::Vec3d& v) {
        return inScene({v.x(), v.z(), -v.y()}, up).z() > kUpright;
    });
    return static_cast<double>(standing) / static_cast<double>(uprights.size());
}

std::optional<UpAxis> clearlyUp(const std::vector<osg::Vec3d>& uprights)
{
    if (uprights.empty())
        return std::nullopt;
    std::array<double, kAxes.size()> along{};
    std::transform(kAxes.begin(), kAxes.end(), along.begin(),
                   [&](UpAxis up) { return standingAlong(uprights, up); });
    const auto best = std::max_element(along.begin(), along.end());
    const double most = *best;
    *best = 0.0;
    const double next = std::max(0.0, *std::max_element(along.begin(), along.end()));
    if (most <= kUpright || most <= kClearly * next)
        return std::nullopt;
    return kAxes[static_cast<std::size_t>(best - along.begin())];
}

UpAxis found(const MatchedMotion& motion, const MotionFigure& figure, const PoseSample& raw,
             ProfileRecord& record)
{
    std::vector<osg::Vec3d> inMotion;
    for (const Placements& pose : raw.poses)
        inMotion.push_back(upright(pose, motion.matching));
    const std::optional<UpAxis> byMotion = clearlyUp(inMotion);
    const Placements rest = MatchedMotion::atRest(figure);
    const std::optional<UpAxis> byRest =
        isStanding(rest, motion.matching) ? clearlyUp({upright(rest, motion.matching)}) : std::nullopt;
    // Dancers may stand on their heads, and others crawl: only who hardly does anything else overrules a
    // pose at rest that stands.
    const bool motionTells =
        byMotion && raw.poses.size() >= kTellingPoses && shareAlong(inMotion, *byMotion) >= kHardlyElse;
    if (byMotion && (motionTells || !byRest)) {
        record.upReason = "the figure stands along it in the motion";
        return *byMotion;
    }
    record.upReason = byRest ? "the figure stands along it at rest" : "no axis is clearly up; Y is usual";
    return byRest.value_or(UpAxis::Y);
}

}  // namespace

std::string nameOf(UpAxis up)
{
    return kNames[static_cast<std::size_t>(up)];
}

std::optional<UpAxis> axisAsked(ProfileOptions::Up asked)
{
    if (asked == ProfileOptions::Up::Auto)
        return std::nullopt;
    // The options have the axes in the same order, behind "auto".
    return static_cast<UpAxis>(static_cast<std::uint8_t>(asked) - 1);
}

UpAxis uprightAxis(const MatchedMotion& motion, const MotionFigure& figure, const PoseSample& raw,
                   ProfileOptions::Up asked, ProfileRecord& record)
{
    record.upReason = "asked for";
    const std::optional<UpAxis> known = axisAsked(asked);
    const UpAxis up = known ? *known : found(motion, figure, raw, record);
    record.upAxis = nameOf(up);
    return up;
}

}  // namespace KivReader
