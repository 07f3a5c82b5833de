#include "tools/makemotion/armposer.h"

#include <cmath>

#include "tools/makemotion/twobone.h"

namespace KivMotion {

namespace {

/// Turning the palm is shared between forearm and hand, so that neither piece looks wrung.
constexpr double kForearmShare = 0.6;

osg::Quat onSide(Side side, const osg::Quat& left)
{
    return side == Side::Left ? left : mirrored(left);
}

/// The part of a rotation that turns about X.
osg::Quat twistAboutX(const osg::Quat& q)
{
    osg::Quat twist(q.x(), 0, 0, q.w());
    const double length = twist.length();
    return length > 1e-9 ? twist / length : osg::Quat();
}

void poseByAngles(const Rig& rig, const ArmAngles& arm, Side side, Pose& pose)
{
    const osg::Quat upper = aboutX(-arm.external) * aboutZ(arm.abduction - 90) * aboutX(-arm.flexion);
    const osg::Quat lower = aboutX(-arm.supination * kForearmShare) * aboutY(-arm.elbow);
    const osg::Quat hand =
        aboutX(-arm.supination * (1 - kForearmShare)) * aboutZ(-arm.wristFlexion) * aboutY(-arm.wristToThumb);
    const osg::Quat shoulder = pose.rotation(rig.find(sided(side, "Shoulder")));
    pose.setRotation(rig.find(sided(side, "Arm")), onSide(side, upper) * shoulder.inverse());
    pose.setRotation(rig.find(sided(side, "ForeArm")), onSide(side, lower));
    pose.setRotation(rig.find(sided(side, "Hand")), onSide(side, hand));
}

void poseByTarget(const Rig& rig, const HandTarget& target, Side side, Pose& pose)
{
    const int arm = rig.find(sided(side, "Arm"));
    const int forearm = rig.find(sided(side, "ForeArm"));
    const int hand = rig.find(sided(side, "Hand"));
    const TwoBoneLimb limb{rig.offsetOf(sided(side, "ForeArm")), rig.offsetOf(sided(side, "Hand")),
                           osg::Vec3d(0, 0, -1)};
    const TwoBoneTurn turn = reach(limb, pose.worldPosition(arm), target.wrist, target.elbowPole);
    pose.setWorldRotation(arm, turn.upper);
    const osg::Quat twist = twistAboutX(target.hand * turn.lower.inverse());
    pose.setWorldRotation(forearm, partOf(twist, kForearmShare) * turn.lower);
    pose.setWorldRotation(hand, target.hand);
}

void poseFingers(const Rig& rig, const HandShape& shape, Side side, Pose& pose)
{
    struct Finger
    {
        const char* name;
        double curl, spread;
    };
    // Relaxed fingers curl more towards the little one.
    constexpr Finger kFingers[] = {
        {"Index", 0.75, 1.3}, {"Middle", 1.0, 0.2}, {"Ring", 1.15, -0.8}, {"Pinky", 1.25, -1.9}};
    for (const Finger& finger : kFingers) {
        const std::string base = sided(side, std::string("Hand") + finger.name);
        const double curl = shape.curl * finger.curl;
        pose.setRotation(rig.find(base + "1"),
                         onSide(side, aboutZ(-0.8 * curl) * aboutY(-shape.spread * finger.spread)));
        pose.setRotation(rig.find(base + "2"), onSide(side, aboutZ(-1.1 * curl)));
        pose.setRotation(rig.find(base + "3"), onSide(side, aboutZ(-0.6 * curl)));
    }
    // The thumb folds about the axis across its own direction: down towards the palm and in towards the
    // fingers.
    const std::string thumb = sided(side, "HandThumb");
    const osg::Quat down = aboutX(0.7 * shape.thumb);
    pose.setRotation(rig.find(thumb + "1"), onSide(side, down * aboutY(0.8 * shape.thumb)));
    pose.setRotation(rig.find(thumb + "2"), onSide(side, aboutY(0.9 * shape.thumb)));
    pose.setRotation(rig.find(thumb + "3"), onSide(side, aboutY(0.9 * shape.thumb)));
}

}  // namespace

void poseArm(const Rig& rig, const BodyPose& body, Side side, Pose& pose)
{
    const std::size_t index = indexOf(side);
    pose.setRotation(rig.find(sided(side, "Shoulder")), onSide(side, aboutZ(body.shoulderLift[index])));
    if (body.handsReach)
        poseByTarget(rig, body.targets[index], side, pose);
    else
        poseByAngles(rig, body.arms[index], side, pose);
    poseFingers(rig, body.hands[index], side, pose);
}

}  // namespace KivMotion
