#pragma once

#include <map>
#include <string>
#include <vector>

#include "KivReader/humanoidprofile.h"
#include "host/KivReader/figure/figurepose.h"
#include "host/KivReader/figure/motionfigure.h"
#include "host/KivReader/humanoid/jointmatching.h"
#include "host/KivReader/humanoid/restpose.h"

namespace KivReader {

/// What the plan is made from: a figure in the scene's frame and units, at rest.
struct BodySource
{
    const MotionFigure& figure;
    const RestPose& pose;
    const JointMatching& matching;
    const RestFigure& avatar;
    osg::Vec3d arms;  ///< between the arms, at rest, as the trunk carries it through the motion
    double height;    ///< standing
    const Placements& rest = pose.placements;  ///< of the figure's joints
};

/// A joint of the figure to be: rigid with one of the file's joints, at a fixed place in that joint's frame.
/// So whatever is folded, inserted or hung elsewhere, it moves exactly as the file has it.
struct PlannedJoint
{
    std::string name;
    std::int32_t parent = -1;  ///< index into the plan
    std::int32_t source = -1;  ///< index into the file's joints
    bool isSource = false;     ///< it is that joint, at its place
    osg::Vec3d place;          ///< at rest, in the scene
    osg::Quat turn;            ///< at rest: from the avatar's axes to the scene's
    std::string along;         ///< of an inserted joint: where it stands
    osg::Vec3d fitShift;       ///< at rest, in the scene: how far from its place dressing measures it
    bool endSite = false;
};

/// How far the thighs' joints are apart at rest. The whole torso is drawn in proportion to it.
struct HipWidth
{
    double own = 0.0;       ///< as the file has it
    double measured = 0.0;  ///< what dressing is to take it for: within what makes a torso like a person's
    osg::Vec3d toLeft;      ///< of length 1, from the right thigh to the left one
};

struct BodyPlan
{
    std::vector<PlannedJoint> joints;
    std::map<std::string, std::size_t> index;  ///< of the avatar's joints, by name
    HipWidth hips;

    bool has(const std::string& name) const { return index.count(name) > 0; }
    const PlannedJoint& at(const std::string& name) const { return joints[index.at(name)]; }
};

/// Every joint of the avatar with its place and its axes.
BodyPlan planBody(const BodySource& source);

}  // namespace KivReader
