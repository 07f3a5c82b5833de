#pragma once

#include <osg/MatrixTransform>
#include <osg/Vec3f>
#include <osg/observer_ptr>

#include <map>
#include <string>
#include <vector>

namespace KivAnimation {
class Bone;
}
namespace KivManipulator {
class PropsGeode;
}

namespace KivCharacterization {

/// A bone segment of a motion skeleton, at rest: the child joint as seen from its parent, in scene units,
/// Z-up.
struct BvhSegment
{
    osg::Vec3f offset;
    float length = 0.0f;
};

/// A bone segment of the avatar, at rest: in the avatar's units, Y-up.
struct IveSegment
{
    float length = 0.0f;
    osg::Vec3f offset;
};

/// A joint of the avatar with the mesh pieces that hang directly under it, in child order. The model owns
/// the nodes.
struct IveJointEntry
{
    std::vector<osg::MatrixTransform*> pieces;
    osg::MatrixTransform* node = nullptr;
};

/// Joints by normalised name, segments by segment key. The scene graph owns the bones.
using BvhJointMap = std::map<std::string, KivAnimation::Bone*>;
using BvhSegmentMap = std::map<std::string, BvhSegment>;
using IveJointMap = std::map<std::string, IveJointEntry>;
using IveSegmentMap = std::map<std::string, IveSegment>;

/// A second table that the analysis of an avatar hands around; nothing fills it.
using SkeletonExtra = std::map<std::string, osg::MatrixTransform*>;  // frozen

/// Props by normalised joint name; the scene graph keeps them alive.
using PropsMap = std::map<std::string, osg::observer_ptr<KivManipulator::PropsGeode>>;

}  // namespace KivCharacterization
