#include "apps/kivplayer/analysis/sampledmotion.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace KivPlayer {

namespace {

constexpr int kMoments = 96;

using Joints = std::vector<DressedActor::Joint>;
using Places = std::vector<osg::Vec3d>;

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

/// A joint of the left and the right side whose places tell where a figure faces: of its hips or, failing
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
osg::Vec3d frontOf(const std::optional<SidePair>& sides, const Places& places)
{
    if (!sides)
        return {};
    osg::Vec3d front = (places[sides->first] - places[sides->second]) ^ osg::Vec3d(0, 0, 1);
    front.normalize();
    return front;
}

osg::Vec3d headAt(const std::optional<std::size_t>& head, const Places& places)
{
    if (head)
        return places[*head];
    const auto highest = std::max_element(
        places.begin(), places.end(), [](const osg::Vec3d& a, const osg::Vec3d& b) { return a.z() < b.z(); });
    return highest == places.end() ? osg::Vec3d() : *highest;
}

}  // namespace

osg::Vec3d groundBelow(const osg::Vec3d& place)
{
    return {place.x(), place.y(), 0.0};
}

Places SampledMotion::placesOverGround() const
{
    Places relative;
    for (std::size_t i = 0; i < places.size(); ++i)
        relative.push_back(places[i] - groundBelow(places[i - i % joints]));
    return relative;
}

Places SampledMotion::headsOverGround() const
{
    Places relative;
    for (std::size_t i = 0; i < moments(); ++i)
        relative.push_back(heads[i] - groundBelow(places[i * joints]));
    return relative;
}

osg::Vec3d headOf(const Joints& joints, const Places& places)
{
    return headAt(headJointOf(joints), places);
}

SampledMotion sampleMotion(const DressedActor& actor, KivAnimation::Animation* animation,
                           const std::pair<double, double>& span)
{
    SampledMotion sampled;
    sampled.joints = actor.joints().size();
    const double end = animation ? animation->duration() : 0.0;
    const double from = std::clamp(span.first, 0.0, end);
    const double to = std::clamp(span.second, 0.0, end);
    const int moments = to > from ? kMoments : 1;
    const std::optional<std::size_t> head = headJointOf(actor.joints());
    const std::optional<SidePair> sides = sidesOf(actor.joints());
    Places places;
    sampled.places.reserve(sampled.joints * static_cast<std::size_t>(moments));
    for (int i = 0; i < moments; ++i) {
        if (animation)
            animation->pose(moments > 1 ? from + (to - from) * i / (moments - 1) : from);
        actor.readPositions(places);
        sampled.places.insert(sampled.places.end(), places.begin(), places.end());
        sampled.heads.push_back(headAt(head, places));
        sampled.front += frontOf(sides, places);
        for (const osg::Vec3d& place : places)
            sampled.box.expandBy(place);
    }
    return sampled;
}

}  // namespace KivPlayer
