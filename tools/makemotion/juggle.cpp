// Somebody who juggles two balls. Each ball belongs to one props joint for the whole motion, whichever hand
// has it.
#include <algorithm>
#include <cmath>

#include "tools/makemotion/curve.h"
#include "tools/makemotion/figureposer.h"
#include "tools/makemotion/juggleplan.h"
#include "tools/makemotion/samplemotions.h"
#include "tools/makemotion/standing.h"

namespace KivMotion {

namespace {

/// The left hand with its palm up and its fingers ahead, a little inwards.
osg::Quat palmUp(double inwards, double tilt)
{
    return aboutX(180) * aboutY(-90 - inwards) * aboutX(-tilt);
}

void aimHand(const Rig& rig, const JugglePlan& plan, Side side, double time, BodyPose& body)
{
    const osg::Vec3d hold = plan.holdPoint(side, time);
    const double outward = (signOf(side) * hold.x() - 20) / 8;  // −1 at the throw, +1 at the catch
    const double rise =
        (plan.holdPoint(side, time + 0.02).y() - plan.holdPoint(side, time - 0.02).y()) / 0.04;
    const osg::Quat left = palmUp(14 - 8 * outward, 4 + 0.04 * rise);
    HandTarget& target = body.targets[indexOf(side)];
    target.hand = side == Side::Left ? left : mirrored(left);
    target.wrist = hold - target.hand * rig.offsetOf(sided(side, "Props"));
    target.elbowPole = osg::Vec3d(signOf(side) * 0.35, -1, -0.5);
    HandShape& shape = body.hands[indexOf(side)];
    const bool full = !plan.flightOf(Side::Left, time) || !plan.flightOf(Side::Right, time);
    shape.curl = full ? 24 : 20;
    shape.thumb = 5;
}

/// How high over the hands the balls are, for the eyes.
osg::Vec3d middleOfBalls(const JugglePlan& plan, double time)
{
    osg::Vec3d sum;
    for (Side ball : {Side::Left, Side::Right}) {
        const Flight* flight = plan.flightOf(ball, time);
        sum += flight ? flight->positionAt(time) : plan.holdPoint(plan.holderOf(ball, time), time);
    }
    return sum * 0.5;
}

BodyPose jugglingPose(const Rig& rig, const JugglePlan& plan, double time)
{
    BodyPose body = standingPose(rig);
    const double busy = window(time, 0.7, plan.end() + 0.6, 0.8);
    body.foot(Side::Left).ankle += osg::Vec3d(1.5, 0, 1);
    body.foot(Side::Right).ankle += osg::Vec3d(-1.5, 0, -1);
    const osg::Vec3d left = plan.holdPoint(Side::Left, time), right = plan.holdPoint(Side::Right, time);
    // The body gives with the hands.
    const double lift = 0.5 * (left.y() + right.y()) - 116;
    body.pelvis +=
        osg::Vec3d(0.5 * drift(time, 2) + 0.04 * (left.x() + right.x()), -1.2 * busy + 0.10 * lift, 0);
    body.pelvisAttitude.roll += 0.8 * drift(time, 9);
    body.chest.yaw += 0.35 * (right.y() - left.y()) * 0.6;
    body.chest.roll += 0.10 * (left.y() - right.y());
    body.chest.pitch -= 2 - 0.05 * lift;
    body.gaze.pitch += -9 + 17 * busy;
    body.handsReach = true;
    body.shoulderLift = {-1 + 0.12 * (left.y() - 116), -1 + 0.12 * (right.y() - 116)};
    breathe(body, time, 1.3);
    for (Side side : {Side::Left, Side::Right})
        aimHand(rig, plan, side, time, body);
    return body;
}

void followBalls(std::vector<BodyPose>& frames, const JugglePlan& plan)
{
    constexpr int kLazyEyes = 12;
    std::vector<double> across, up;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const osg::Vec3d middle = middleOfBalls(plan, static_cast<double>(i) / kFramesPerSecond);
        across.push_back(middle.x());
        up.push_back(middle.y() - 130);
    }
    across = smoothed(across, kLazyEyes);
    up = smoothed(up, kLazyEyes);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        frames[i].gaze.yaw += 0.5 * across[i];
        frames[i].gaze.pitch += 0.18 * up[i];
    }
}

osg::Quat handTurn(const Rig& rig, const Clip& clip, Side hand, double time)
{
    const auto frame = static_cast<std::size_t>(std::lround(time * kFramesPerSecond));
    return clip.poses[std::min(frame, clip.poses.size() - 1)].worldRotation(rig.find(sided(hand, "Hand")));
}

/// A ball turns with the hand that holds it, and in the air from one hand's attitude to the other's.
osg::Quat ballTurn(const Rig& rig, const JugglePlan& plan, const Clip& clip, Side ball, double time)
{
    const Flight* flight = plan.flightOf(ball, time);
    if (!flight)
        return handTurn(rig, clip, plan.holderOf(ball, time), time);
    osg::Quat turn;
    turn.slerp((time - flight->start) / (flight->end - flight->start),
               handTurn(rig, clip, flight->thrower, flight->start),
               handTurn(rig, clip, opposite(flight->thrower), flight->end));
    return turn;
}

osg::Vec3d ballPosition(const Rig& rig, const JugglePlan& plan, const Pose& pose, Side ball, double time)
{
    if (const Flight* flight = plan.flightOf(ball, time))
        return flight->positionAt(time);
    const Side holder = plan.holderOf(ball, time);
    const int hand = rig.find(sided(holder, "Hand"));
    return pose.worldPosition(hand) + pose.worldRotation(hand) * rig.offsetOf(sided(holder, "Props"));
}

void carryBalls(const Rig& rig, const JugglePlan& plan, std::size_t frame, Clip& clip)
{
    const double time = static_cast<double>(frame) / kFramesPerSecond;
    Pose& pose = clip.poses[frame];
    for (Side ball : {Side::Left, Side::Right}) {
        const int parent = rig.find(sided(ball, "Hand")), props = rig.find(sided(ball, "Props"));
        const osg::Vec3d world = ballPosition(rig, plan, pose, ball, time);
        pose.setPosition(props, pose.worldRotation(parent).inverse() * (world - pose.worldPosition(parent)));
        pose.setWorldRotation(props, ballTurn(rig, plan, clip, ball, time));
    }
}

}  // namespace

Clip makeJuggle(const Rig& rig)
{
    const JugglePlan plan;
    std::vector<BodyPose> frames;
    const int count = static_cast<int>((plan.end() + 1.6) * kFramesPerSecond);
    for (int i = 0; i < count; ++i)
        frames.push_back(jugglingPose(rig, plan, i / kFramesPerSecond));
    followBalls(frames, plan);
    keepLegsInReach(rig, frames, 0.995, 7);
    Clip clip = makeClip(rig, frames);
    for (std::size_t i = 0; i < clip.poses.size(); ++i)
        carryBalls(rig, plan, i, clip);
    return clip;
}

}  // namespace KivMotion
