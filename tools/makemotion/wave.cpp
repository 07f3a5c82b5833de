// Somebody who stands at ease, sees a friend and waves with the right hand.
#include <cmath>

#include "tools/makemotion/curve.h"
#include "tools/makemotion/samplemotions.h"
#include "tools/makemotion/standing.h"

namespace KivMotion {

namespace {

constexpr double kSeconds = 7;
constexpr double kLift = 1.1;    // the arm starts up
constexpr double kLifted = 1.9;  // and is there
constexpr double kLower = 4.9;
constexpr double kLowered = 5.9;
constexpr double kWaveTime = 0.52;  // to and fro

ArmAngles mixed(const ArmAngles& a, const ArmAngles& b, double share)
{
    const auto mix = [share](double from, double to) { return from + (to - from) * share; };
    ArmAngles arm;
    arm.flexion = mix(a.flexion, b.flexion);
    arm.abduction = mix(a.abduction, b.abduction);
    arm.external = mix(a.external, b.external);
    arm.elbow = mix(a.elbow, b.elbow);
    arm.supination = mix(a.supination, b.supination);
    arm.wristFlexion = mix(a.wristFlexion, b.wristFlexion);
    arm.wristToThumb = mix(a.wristToThumb, b.wristToThumb);
    return arm;
}

ArmAngles raisedArm()
{
    ArmAngles arm;
    arm.flexion = 14;
    arm.abduction = 58;
    arm.external = 70;
    arm.elbow = 106;
    arm.supination = -4;
    arm.wristFlexion = -8;
    return arm;
}

void waveArm(BodyPose& body, double time)
{
    const double up = ease(time, kLift, kLifted) * (1 - ease(time, kLower, kLowered));
    // The elbow bends ahead of the shoulder on the way up and straightens after it on the way down.
    const double bent =
        ease(time, kLift - 0.05, kLifted - 0.15) * (1 - ease(time, kLower + 0.1, kLowered + 0.1));
    const double waving = window(time, kLifted - 0.3, kLower + 0.2, 0.5);
    const double phase = 2 * osg::PI * (time - kLifted + 0.3) / kWaveTime;
    ArmAngles& arm = body.arm(Side::Right);
    const ArmAngles hanging = arm, raised = raisedArm();
    arm = mixed(hanging, raised, up);
    arm.elbow = hanging.elbow + (raised.elbow - hanging.elbow) * bent + waving * 15 * std::sin(phase);
    arm.external += waving * 2 * std::sin(phase);
    // The hand trails behind the forearm.
    arm.wristToThumb += waving * 13 * std::sin(phase - 0.9);
    body.shoulderLift[indexOf(Side::Right)] += 7 * up;
    HandShape& hand = body.hands[indexOf(Side::Right)];
    hand.curl += (7 - hand.curl) * up;
    hand.spread = 4 * up;
    hand.thumb += (-6 - hand.thumb) * up;
}

void shiftWeight(BodyPose& body, double time)
{
    // To the left leg before the greeting, over to the right one after it.
    const double left = ease(time, 0.3, 1.6), right = ease(time, 5.0, 6.6);
    const double over = left * (1 - right) - 0.7 * right;
    body.pelvis.x() += 4.5 * over;
    body.pelvis.y() -= 0.4 * std::abs(over);
    body.pelvis.z() += 0.4 * drift(time, 4);
    body.pelvisAttitude.roll += 3.5 * over;
    body.pelvisAttitude.yaw -= 3 * over;
    body.chest.roll -= 2 * over;
    body.chest.yaw += 1.5 * over;
}

BodyPose wavingPose(const Rig& rig, double time)
{
    BodyPose body = standingPose(rig);
    body.foot(Side::Right).ankle += osg::Vec3d(-1.5, 0, 3);
    body.foot(Side::Right).yaw -= 7;
    shiftWeight(body, time);
    const double greeting = window(time, kLift - 0.2, kLowered, 0.7);
    const double phase = 2 * osg::PI * (time - kLifted + 0.3) / kWaveTime;
    body.chest.roll += greeting * (3 + 0.5 * std::sin(phase));
    body.chest.yaw += 4 * greeting;
    body.gaze.roll += greeting * (-8 + 1.0 * std::sin(phase * 0.5));
    body.gaze.yaw -= 3 * greeting;
    body.gaze.pitch += 4 * greeting - 5 * window(time, kLifted + 0.1, kLifted + 0.9, 0.35);
    ArmAngles& left = body.arm(Side::Left);
    left.elbow += 4 * greeting + drift(time, 1);
    left.flexion += 2 * drift(time, 6);
    waveArm(body, time);
    breathe(body, time, 0);
    return body;
}

}  // namespace

Clip makeWave(const Rig& rig)
{
    std::vector<BodyPose> frames;
    const int count = static_cast<int>(kSeconds * kFramesPerSecond);
    for (int i = 0; i < count; ++i)
        frames.push_back(wavingPose(rig, i / kFramesPerSecond));
    keepLegsInReach(rig, frames, 0.996, 7);
    return makeClip(rig, frames);
}

}  // namespace KivMotion
