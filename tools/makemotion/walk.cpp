// A walk across the stage, from a stand to a stand.
#include "tools/makemotion/figureposer.h"
#include "tools/makemotion/gait.h"
#include "tools/makemotion/samplemotions.h"
#include "tools/makemotion/standing.h"

namespace KivMotion {

Clip makeWalk(const Rig& rig)
{
    constexpr double kSeconds = 8;
    WalkStyle style;
    style.start = 0.9;
    style.steps = 11;
    Clip clip = makeClip(rig, walkFrames(rig, style, kSeconds));
    for (Pose& pose : clip.poses)
        placeFigure(pose, 0, osg::Vec3d(0, 0, -0.5 * style.distance()));
    return clip;
}

}  // namespace KivMotion
