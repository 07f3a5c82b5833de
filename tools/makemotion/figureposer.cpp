#include "tools/makemotion/figureposer.h"

#include <algorithm>
#include <cmath>

#include "tools/makemotion/armposer.h"
#include "tools/makemotion/twobone.h"

namespace KivMotion {

namespace {

/// Shares a rotation among joints that follow one another.
void bend(Pose& pose, const Rig& rig, const osg::Quat& whole, std::initializer_list<const char*> joints)
{
    const osg::Quat part = partOf(whole, 1.0 / static_cast<double>(joints.size()));
    for (const char* joint : joints)
        pose.setRotation(rig.find(joint), part);
}

void poseTrunk(const Rig& rig, const BodyPose& body, Pose& pose)
{
    const osg::Quat pelvis = body.pelvisAttitude.rotation();
    const osg::Quat chest = body.chest.rotation();
    pose.setPosition(0, body.pelvis);
    pose.setRotation(0, pelvis);
    bend(pose, rig, chest * pelvis.inverse(), {"Spine", "Spine1", "Spine2", "Spine3"});
    bend(pose, rig, body.gaze.rotation() * chest.inverse(), {"Neck", "Head"});
}

void poseLeg(const Rig& rig, const BodyPose& body, Side side, Pose& pose)
{
    const FootPlacement& foot = body.feet[indexOf(side)];
    const int thigh = rig.find(sided(side, "UpLeg"));
    const TwoBoneLimb limb{rig.offsetOf(sided(side, "Leg")), rig.offsetOf(sided(side, "Foot")),
                           osg::Vec3d(0, 0, 1)};
    // Knees point where the toes do, but less far off the way ahead.
    const double heading = body.pelvisAttitude.yaw;
    const osg::Vec3d pole = aboutY(heading + 0.8 * (foot.yaw - heading)) * osg::Vec3d(0, 0, 1);
    const TwoBoneTurn turn = reach(limb, pose.worldPosition(thigh), foot.ankle, pole);
    pose.setWorldRotation(thigh, turn.upper);
    pose.setWorldRotation(rig.find(sided(side, "Leg")), turn.lower);
    pose.setWorldRotation(rig.find(sided(side, "Foot")), Attitude{foot.yaw, foot.pitch, 0}.rotation());
}

}  // namespace

Pose poseFigure(const Rig& rig, const BodyPose& body)
{
    Pose pose(rig);
    poseTrunk(rig, body, pose);
    for (Side side : {Side::Left, Side::Right}) {
        poseLeg(rig, body, side, pose);
        poseArm(rig, body, side, pose);
    }
    return pose;
}

void placeFigure(Pose& pose, double yaw, const osg::Vec3d& shift)
{
    const osg::Quat turn = aboutY(yaw);
    pose.setPosition(0, turn * pose.position(0) + shift);
    pose.setRotation(0, pose.rotation(0) * turn);
}

double highestPelvis(const Rig& rig, const BodyPose& body, Side side, double share)
{
    const osg::Vec3d hip = body.pelvisAttitude.rotation() * rig.offsetOf(sided(side, "UpLeg"));
    const osg::Vec3d apart = body.pelvis + hip - body.feet[indexOf(side)].ankle;
    const double length =
        share * (rig.offsetOf(sided(side, "Leg")).length() + rig.offsetOf(sided(side, "Foot")).length());
    const double across = apart.x() * apart.x() + apart.z() * apart.z();
    return body.feet[indexOf(side)].ankle.y() - hip.y() + std::sqrt(std::max(0.0, length * length - across));
}

}  // namespace KivMotion
