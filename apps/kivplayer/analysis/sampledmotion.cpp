#include "apps/kivplayer/analysis/sampledmotion.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

namespace KivPlayer {

namespace {

constexpr int kMoments = 96;

using Joints = std::vector<DressedActor::Joint>;
using Positions = std::vector<osg::Vec3d>;

std::optional<std::size_t> jointOf(const Joints& joints, const std::string& name)
{
    for (std::size_t i = 0; i < joints.size(); ++i)
        if (joints[i].name == name)
            return i;
    return std::nullopt;
}

std::optional<std::size_t> headJointOf(const Joints& joints)
{
    for (std::size_t i = 0; i < joints.size(); ++i)
        if (joints[i].name.find("Head") != std::string::npos)
            return i;
    return std::nullopt;
}

/// A joint of the left and the right side whose positions tell where a figure faces: of its hips or, failing
/// these, its shoulders.
using SidePair = std::pair<std::size_t, std::size_t>;

std::optional<SidePair> sidesOf(const Joints& joints)
{
    for (const std::string pair : {"UpLeg", "Arm"}) {
        const auto left = jointOf(joints, "Left" + pair);
        const auto right = jointOf(joints, "Right" + pair);
        if (left && right)
            return SidePair(*left, *right);
    }
    return std::nullopt;
}

/// Of length 1, or 0 where nothing tells.
osg::Vec3d frontOf(const std::optional<SidePair>& sides, const Positions& positions)
{
    if (!sides)
        return {};
    osg::Vec3d front = (positions[sides->first] - positions[sides->second]) ^ osg::Vec3d(0, 0, 1);
    front.normalize();
    return front;
}

osg::Vec3d headAt(const std::optional<std::size_t>& head, const Positions& positions)
{
    if (head)
        return positions[*head];
    const auto highest =
        std::max_element(positions.begin(), positions.end(),
                         [](const osg::Vec3d& a, const osg::Vec3d& b) { return a.z() < b.z(); });
    return highest == positions.end() ? osg::Vec3d() : *highest;
}

}  // namespace

osg::Vec3d groundBelow(const osg::Vec3d& position)
{
    return {position.x(), position.y(), 0.0};
}

Positions SampledMotion::positionsOverGround() const
{
    Positions relative;
    for (std::size_t i = 0; i < positions.size(); ++i)
        relative.push_back(positions[i] - groundBelow(positions[i - i % joints]));
    return relative;
}

Positions SampledMotion::headsOverGround() const
{
    Positions relative;
    for (std::size_t i = 0; i < moments(); ++i)
        relative.push_back(heads[i] - groundBelow(positions[i * joints]));
    return relative;
}

osg::Vec3d headOf(const Joints& joints, const Positions& positions)
{
    return headAt(headJointOf(joints), positions);
}

std::vector<double> sampleTimes(double from, double to, double frameTime,
                                const std::vector<std::size_t>& thrown)
{
    constexpr double kOnFrame = 1e-6;
    const int moments = to > from ? kMoments : 1;
    std::vector<double> kept;
    for (int i = 0; i < moments; ++i) {
        const double time = moments > 1 ? from + (to - from) * i / (moments - 1) : from;
        const double frame = frameTime > 0.0 ? std::max(0.0, time / frameTime) : 0.0;
        const auto before = static_cast<std::size_t>(frame + kOnFrame);
        const auto after = static_cast<std::size_t>(std::ceil(frame - kOnFrame));
        const auto next = std::lower_bound(thrown.begin(), thrown.end(), before);
        if (next == thrown.end() || *next > after)
            kept.push_back(time);
    }
    return kept.empty() ? std::vector<double>{from} : kept;
}

SampledMotion sampleMotion(const DressedActor& actor, KivAnimation::Animation* animation,
                           const std::pair<double, double>& span, const std::vector<std::size_t>& thrown)
{
    SampledMotion sampled;
    sampled.joints = actor.joints().size();
    const double end = animation ? animation->duration() : 0.0;
    const double from = std::clamp(span.first, 0.0, end);
    const double to = std::clamp(span.second, 0.0, end);
    const std::optional<std::size_t> head = headJointOf(actor.joints());
    const std::optional<SidePair> sides = sidesOf(actor.joints());
    Positions positions;
    sampled.positions.reserve(sampled.joints * kMoments);
    for (const double time : sampleTimes(from, to, animation ? animation->frameTime() : 0.0, thrown)) {
        if (animation)
            animation->pose(time);
        actor.readPositions(positions);
        sampled.positions.insert(sampled.positions.end(), positions.begin(), positions.end());
        sampled.heads.push_back(headAt(head, positions));
        sampled.front += frontOf(sides, positions);
        for (const osg::Vec3d& position : positions)
            sampled.box.expandBy(position);
    }
    return sampled;
}

}  // namespace KivPlayer
