#include "host/KivReader/humanoid/recognition/assignment.h"

namespace KivReader {

namespace {

void putStation(Assignment& assignment, const std::string& name, const Chain& chain, int index, int end)
{
    if (index == LimbFit::kNone)
        return;
    const Station& station = chain.stations[static_cast<std::size_t>(index)];
    const bool isLast = index == end;
    if (!station.isBeyond)
        assignment.put(name, isLast ? station.end : station.joint, "its place in a pair of limbs");
}

void putLeg(Assignment& assignment, const std::string& side, const Chain& chain, const LimbFit& fit)
{
    putStation(assignment, side + "UpLeg", chain, fit.root, fit.end);
    putStation(assignment, side + "Leg", chain, fit.bend, fit.end);
    putStation(assignment, side + "Foot", chain, fit.end, fit.end);
    if (fit.after != LimbFit::kNone && assignment.has(side + "Foot"))
        assignment.toes[side + "Foot"] = chain.stations[static_cast<std::size_t>(fit.after)].joint;
}

void putArm(Assignment& assignment, const std::string& side, const Chain& chain, const LimbFit& fit)
{
    putStation(assignment, side + "Shoulder", chain, fit.before, fit.end);
    putStation(assignment, side + "Arm", chain, fit.root, fit.end);
    putStation(assignment, side + "ForeArm", chain, fit.bend, fit.end);
    putStation(assignment, side + "Hand", chain, fit.end, fit.end);
}

}  // namespace

void assignLimbs(Assignment& assignment, const Body& body, const Sides& sides)
{
    const PairFit& legs = body.legs.asLegs;
    putLeg(assignment, sides.firstLegIsLeft ? "Left" : "Right", body.legs.one, legs.one);
    putLeg(assignment, sides.firstLegIsLeft ? "Right" : "Left", body.legs.other, legs.other);
    const PairFit& arms = body.arms.asArms;
    putArm(assignment, sides.firstArmIsLeft ? "Left" : "Right", body.arms.one, arms.one);
    putArm(assignment, sides.firstArmIsLeft ? "Right" : "Left", body.arms.other, arms.other);
}

}  // namespace KivReader
