#include "tools/makemotion/standing.h"

#include <algorithm>
#include <cmath>

#include "tools/makemotion/curve.h"
#include "tools/makemotion/figureposer.h"

namespace KivMotion {

ArmAngles hangingArm()
{
    ArmAngles arm;
    arm.flexion = 1;
    arm.abduction = 10;
    arm.elbow = 14;
    arm.supination = -18;
    arm.wristFlexion = 5;
    return arm;
}

BodyPose standingPose(const Rig& rig)
{
    BodyPose body;
    body.pelvis = osg::Vec3d(0, rig.rootHeight() - 0.5, 1.5);
    body.pelvisAttitude.pitch = -2;
    body.chest.pitch = 1;
    body.gaze.pitch = -2;
    for (Side side : {Side::Left, Side::Right}) {
        FootPlacement& foot = body.foot(side);
        foot.ankle = osg::Vec3d(signOf(side) * 10, 8.5, side == Side::Left ? 1 : -1);
        foot.yaw = signOf(side) * 9;
        body.arm(side) = hangingArm();
    }
    return body;
}

void breathe(BodyPose& body, double time, double seed)
{
    const double breath = std::sin(2 * osg::PI * time / 3.7 + seed);
    body.chest.pitch += 0.7 * breath;
    for (double& lift : body.shoulderLift)
        lift += 0.9 * breath;
    body.gaze.yaw += 2.0 * drift(time, seed + 3);
    body.gaze.pitch += 1.2 * drift(time, seed + 8);
}

void keepLegsInReach(const Rig& rig, std::vector<BodyPose>& frames, double share, int radius)
{
    std::vector<double> heights;
    heights.reserve(frames.size());
    for (const BodyPose& body : frames)
        heights.push_back(std::min({body.pelvis.y(), highestPelvis(rig, body, Side::Left, share),
                                    highestPelvis(rig, body, Side::Right, share)}));
    heights = smoothedBelow(heights, radius);
    for (std::size_t i = 0; i < frames.size(); ++i)
        frames[i].pelvis.y() = heights[i];
}

Clip makeClip(const Rig& rig, const std::vector<BodyPose>& frames)
{
    Clip clip{&rig, 1 / kFramesPerSecond, {}};
    clip.poses.reserve(frames.size());
    for (const BodyPose& body : frames)
        clip.poses.push_back(poseFigure(rig, body));
    return clip;
}

}  // namespace KivMotion
