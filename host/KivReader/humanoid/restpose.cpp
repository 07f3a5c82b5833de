#include "host/KivReader/humanoid/restpose.h"

#include "host/KivReader/humanoid/limbrest.h"
#include "host/KivReader/humanoid/restaxes.h"

namespace KivReader {

namespace {

/// A pose in which the person may look anywhere, and lie or lean.
osg::Quat headingOf(const Placements& rest, const JointMatching& matching)
{
    const auto across = [&](const char* part) {
        return rest[matching.at(std::string("Left") + part)].place -
               rest[matching.at(std::string("Right") + part)].place;
    };
    const osg::Vec3d up =
        middle(rest, matching, "LeftArm", "RightArm") - middle(rest, matching, "LeftUpLeg", "RightUpLeg");
    const Pair avatar = {{0, 0, 1}, {1, 0, 0}};
    const Pair byHips = {up, across("UpLeg")};
    if (byHips.isTelling())
        return turnBetween(avatar, byHips);
    const Pair byArms = {up, across("Arm")};
    return byArms.isTelling() ? turnBetween(avatar, byArms) : osg::Quat();
}

/// All joints down from the root: turned as they are known to be, or else against what they hang from as they
/// are on the average.
Placements placedAtRest(const PosedBody& body, const RestTurns& turns)
{
    std::vector<bool> isOverHips(body.figure.joints.size());
    for (std::int32_t i = body.figure.joints[body.at("Hips")].parent; i >= 0;
         i = body.figure.joints[static_cast<std::size_t>(i)].parent)
        isOverHips[static_cast<std::size_t>(i)] = true;
    Placements rest(body.figure.joints.size());
    for (std::size_t i = 0; i < rest.size(); ++i) {
        const MotionFigure::Joint& joint = body.figure.joints[i];
        const auto parent = static_cast<std::size_t>(joint.parent);
        rest[i].place = joint.parent < 0 ? joint.offset : rest[parent].outward(joint.offset);
        if (const auto known = turns.find(i); known != turns.end())
            rest[i].turn = known->second;
        else if (joint.parent >= 0 && !isOverHips[i])
            rest[i].turn = meanTurnAgainst(body, i, parent) * rest[parent].turn;
    }
    return rest;
}

}  // namespace

RestPose restFromMotion(const PosedBody& body)
{
    RestTurns turns = trunkTurns(body);
    for (const std::string side : {"Left", "Right"}) {
        addLegTurns(turns, body, side);
        addArmTurns(turns, body, side);
    }
    RestPose rest;
    rest.placements = placedAtRest(body, turns);
    rest.solesAreLevel = true;
    return rest;
}

RestPose restAsItIs(Placements placements, const JointMatching& matching)
{
    RestPose rest;
    rest.placements = std::move(placements);
    rest.heading = headingOf(rest.placements, matching);
    return rest;
}

}  // namespace KivReader
