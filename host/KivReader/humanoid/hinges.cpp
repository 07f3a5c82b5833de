#include "host/KivReader/humanoid/hinges.h"

#include <algorithm>
#include <cmath>

namespace KivReader {

namespace {

constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr double kSlightBend = 10.0;  ///< degrees: less than this is mostly noise

struct Bones
{
    osg::Vec3d upper, lower;  ///< of length 1; 0 where the bone has no length
};

Bones bonesOf(const Placements& pose, const LimbJoints& limb)
{
    Bones bones;
    bones.upper = pose[limb.middle].place - pose[limb.upper].place;
    bones.lower = pose[limb.end].place - pose[limb.middle].place;
    bones.upper.normalize();
    bones.lower.normalize();
    return bones;
}

}  // namespace

osg::Vec3d bendNormal(const Placements& pose, const LimbJoints& limb)
{
    const Bones bones = bonesOf(pose, limb);
    return bones.upper ^ bones.lower;
}

double bendOf(const Placements& pose, const LimbJoints& limb)
{
    const Bones bones = bonesOf(pose, limb);
    return std::atan2((bones.upper ^ bones.lower).length(), bones.upper * bones.lower) * kDegreesPerRadian;
}

Hinge hingeOf(const std::vector<Placements>& poses, const LimbJoints& limb)
{
    Hinge hinge;
    double weight = 0.0;
    double least = 180.0;
    double most = 0.0;
    for (const Placements& pose : poses) {
        const double bend = bendOf(pose, limb);
        least = std::min(least, bend);
        most = std::max(most, bend);
        if (bend < kSlightBend)
            continue;
        const osg::Vec3d normal = bendNormal(pose, limb);
        hinge.axis += pose[limb.upper].turn.conj() * normal;
        hinge.axisBelow += pose[limb.middle].turn.conj() * normal;
        weight += normal.length();
    }
    hinge.range = std::max(0.0, most - least);
    hinge.agreement = weight > 0.0 ? hinge.axis.length() / weight : 0.0;
    hinge.axis.normalize();
    hinge.axisBelow.normalize();
    return hinge;
}

}  // namespace KivReader
