// Two people who come towards each other along X, keep to their right, greet with a nod and walk on.
#include "tools/makemotion/curve.h"
#include "tools/makemotion/figureposer.h"
#include "tools/makemotion/gait.h"
#include "tools/makemotion/samplemotions.h"
#include "tools/makemotion/standing.h"

namespace KivMotion {

namespace {

constexpr double kSeconds = 7.5;
constexpr double kLaneOffset = 42;  // of either path from the line between the two

struct Greeting
{
    double lookFrom, lookTo;  ///< seconds
    double nod;               ///< when the head is lowest
};

void greet(std::vector<BodyPose>& frames, const Greeting& greeting)
{
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const double time = static_cast<double>(i) / kFramesPerSecond;
        const double look = window(time, greeting.lookFrom, greeting.lookTo, 0.5);
        const double follow = ease(time, greeting.lookFrom + 0.4, greeting.lookTo);
        const double nod = window(time, greeting.nod - 0.28, greeting.nod + 0.38, 0.28);
        BodyPose& body = frames[i];
        // The other passes on the left and drifts backwards there.
        body.gaze.yaw += look * (16 + 30 * follow);
        body.gaze.roll += 2.5 * look;
        body.gaze.pitch += 3 * look - 15 * nod;
        body.chest.yaw += 5 * look * follow;
        body.chest.pitch -= 1.5 * nod;
    }
}

Clip passAlong(const Rig& rig, const WalkStyle& style, const Greeting& greeting, double heading)
{
    std::vector<BodyPose> frames = walkFrames(rig, style, kSeconds);
    greet(frames, greeting);
    Clip clip = makeClip(rig, frames);
    const osg::Vec3d start = aboutY(heading) * osg::Vec3d(-kLaneOffset, 0, -0.5 * style.distance());
    for (Pose& pose : clip.poses)
        placeFigure(pose, heading, start);
    return clip;
}

}  // namespace

Clip makePassLeft(const Rig& rig)
{
    WalkStyle style;
    style.start = 0.8;
    style.steps = 10;
    style.stepLength = 63;
    style.breath = 0.7;
    return passAlong(rig, style, {2.1, 4.0, 2.75}, 90);
}

Clip makePassRight(const Rig& rig)
{
    WalkStyle style;
    style.start = 0.7;
    style.steps = 10;
    style.stepTime = 0.56;
    style.stepLength = 60;
    style.first = Side::Left;
    style.armSwing = 0.8;
    style.breath = 2.9;
    return passAlong(rig, style, {2.3, 4.1, 3.1}, -90);
}

}  // namespace KivMotion
