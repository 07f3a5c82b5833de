#include "sampledmotion.h"

#include <algorithm>
#include <string>

namespace KivPlayer {

namespace {

constexpr int kMoments = 96;

/// Where a figure faces, from its hips or, failing these, its shoulders; of length 1, or 0 where nothing
/// tells.
osg::Vec3d frontOf(const std::vector<DressedActor::Joint>& joints, const std::vector<osg::Vec3d>& places)
{
    for (const char* pair : {"UpLeg", "Arm"}) {
        const osg::Vec3d* left = nullptr;
        const osg::Vec3d* right = nullptr;
        for (std::size_t i = 0; i < joints.size(); ++i) {
            left = joints[i].name == std::string("Left") + pair ? &places[i] : left;
            right = joints[i].name == std::string("Right") + pair ? &places[i] : right;
        }
        if (left && right) {
            osg::Vec3d front = (*left - *right) ^ osg::Vec3d(0, 0, 1);
            front.normalize();
            return front;
        }
    }
    return {};
}

}  // namespace

osg::Vec3d headOf(const std::vector<DressedActor::Joint>& joints, const std::vector<osg::Vec3d>& places)
{
    std::size_t head = 0;
    for (std::size_t i = 0; i < joints.size(); ++i) {
        if (joints[i].name.find("Head") != std::string::npos)
            return places[i];
        head = places[i].z() > places[head].z() ? i : head;
    }
    return places.empty() ? osg::Vec3d() : places[head];
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
    for (int i = 0; i < moments; ++i) {
        if (animation)
            animation->pose(moments > 1 ? from + (to - from) * i / (moments - 1) : from);
        const std::vector<osg::Vec3d> places = actor.positions();
        sampled.places.insert(sampled.places.end(), places.begin(), places.end());
        sampled.heads.push_back(headOf(actor.joints(), places));
        sampled.front += frontOf(actor.joints(), places);
        for (const osg::Vec3d& place : places)
            sampled.box.expandBy(place);
    }
    return sampled;
}

}  // namespace KivPlayer
