// A figure's pose in the words of somebody who moves: pelvis, feet, chest, gaze, arms, hands.
#pragma once

#include <array>
#include <osg/Vec3d>

#include "tools/makemotion/rig.h"
#include "tools/makemotion/rotations.h"

namespace KivMotion {

/// Where an ankle is, in centimetres from the ground's origin; yaw turns the toes left, pitch lifts them.
struct FootPlacement
{
    osg::Vec3d ankle;
    double yaw = 0;
    double pitch = 0;
};

/// Degrees, the same on both sides of the body; all zero is an arm that hangs straight with the palm inwards.
struct ArmAngles
{
    double flexion = 0;     ///< forward swing of the upper arm
    double abduction = 0;   ///< sideways, away from the body
    double external = 0;    ///< turns the elbow's crease from forward to outward
    double elbow = 0;       ///< 0 is straight
    double supination = 0;  ///< turns the palm from inward to forward
    double wristFlexion = 0;
    double wristToThumb = 0;
};

/// An arm whose hand has a task in the world.
struct HandTarget
{
    osg::Vec3d wrist;
    osg::Quat hand;
    osg::Vec3d elbowPole;  ///< where the elbow points
};

struct HandShape
{
    double curl = 22;   ///< of the middle finger's first two joints, in degrees
    double spread = 0;  ///< between neighbouring fingers
    double thumb = 12;  ///< of the thumb towards the palm
};

struct BodyPose
{
    osg::Vec3d pelvis;
    Attitude pelvisAttitude;
    Attitude chest;  ///< in the world, like the pelvis and the gaze
    Attitude gaze;
    std::array<FootPlacement, 2> feet;
    std::array<ArmAngles, 2> arms;
    std::array<double, 2> shoulderLift = {0, 0};  ///< degrees
    std::array<HandShape, 2> hands;
    bool handsReach = false;  ///< the arms follow `targets` instead of `arms`
    std::array<HandTarget, 2> targets;

    FootPlacement& foot(Side side) { return feet[indexOf(side)]; }
    ArmAngles& arm(Side side) { return arms[indexOf(side)]; }
};

}  // namespace KivMotion
