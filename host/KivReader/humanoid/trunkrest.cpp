#include "host/KivReader/humanoid/trunkrest.h"

#include <algorithm>

#include "host/KivReader/humanoid/restaxes.h"

namespace KivReader {

namespace {

/// A joint of the trunk and how far it is on the way from the hips, 0, to the chest, 1.
struct TrunkJoint
{
    std::size_t joint = 0;
    double part = 0.0;
    bool isAboveChest = false;
};

/// From the one that is lower in the body to the one above it, both included; empty where they are not in
/// line.
std::vector<std::size_t> wayUp(const MotionFigure& figure, std::size_t from, std::size_t to)
{
    std::vector<std::size_t> way;
    for (auto joint = static_cast<std::int32_t>(to); joint >= 0;
         joint = figure.joints[static_cast<std::size_t>(joint)].parent) {
        way.push_back(static_cast<std::size_t>(joint));
        if (way.back() == from) {
            std::reverse(way.begin(), way.end());
            return way;
        }
    }
    return {};
}

std::vector<TrunkJoint> trunkJoints(const PosedBody& body)
{
    const std::size_t hips = body.at("Hips");
    const std::size_t chest = commonAncestor(body.figure, body.at("LeftArm"), body.at("RightArm"));
    std::vector<TrunkJoint> joints;
    const std::vector<std::size_t> spine = wayUp(body.figure, hips, chest);
    for (std::size_t i = 0; i < spine.size(); ++i) {
        const double part = spine.size() < 2 ? 0.5 : double(i) / double(spine.size() - 1);
        joints.push_back({spine[i], part, false});
    }
    if (spine.empty())
        joints.push_back({hips, 0.0, false});
    for (const char* top : {"Neck", "Head"}) {
        if (!body.has(top))
            continue;
        for (const std::size_t joint : wayUp(body.figure, spine.empty() ? hips : chest, body.at(top))) {
            const bool isKnown = std::any_of(joints.begin(), joints.end(),
                                             [&](const TrunkJoint& known) { return known.joint == joint; });
            if (!isKnown)
                joints.push_back({joint, 1.0, true});
        }
    }
    return joints;
}

/// What is up and what is to the left of the person, on the average in the joint's own frame. Heads are held
/// upright; the trunk's pieces go along the trunk, whichever way it leans.
Pair meanAxes(const PosedBody& body, const std::vector<double>& weights, const TrunkJoint& at)
{
    const JointMatching& matching = body.motion.matching;
    Pair axes;
    for (std::size_t i = 0; i < weights.size(); ++i) {
        const Placements& pose = body.sample.poses[i];
        const osg::Quat inward = pose[at.joint].turn.conj();
        const osg::Vec3d left =
            acrossOf(pose, matching, "UpLeg") * (1.0 - at.part) + acrossOf(pose, matching, "Arm") * at.part;
        axes.first += inward * trunkOf(pose, matching) * weights[i];
        axes.second += inward * left * weights[i];
    }
    return axes;
}

}  // namespace

std::size_t commonAncestor(const MotionFigure& figure, std::size_t one, std::size_t other)
{
    while (one != other) {
        std::size_t& later = one > other ? one : other;
        later = static_cast<std::size_t>(figure.joints[later].parent);
    }
    return one;
}

RestTurns trunkTurns(const PosedBody& body)
{
    const Pair avatar = {{0, 0, 1}, {1, 0, 0}};
    const std::vector<double> weights = uprightWeights(body);
    RestTurns turns;
    for (const TrunkJoint& at : trunkJoints(body)) {
        const Pair axes = meanAxes(body, weights, at);
        if (axes.isTelling())
            turns[at.joint] = turnBetween(axes, avatar);
    }
    return turns;
}

}  // namespace KivReader
