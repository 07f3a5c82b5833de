#pragma once

#include <osg/MatrixTransform>
#include <osg/ref_ptr>

#include <string>

#include "KivAnimation/bone.h"
#include "KivAnimation/skeleton.h"
#include "KivCharacterization/common/actorinfo.h"
#include "KivCharacterization/common/iveinfo.h"

namespace KivTestSupport {

/// Named figures that unit tests, scenarios and benchmarks share. Avatars are Y-up, skeletons Z-up, in
/// centimetres.

/// A transform of the avatar with an offset from its parent.
osg::ref_ptr<osg::MatrixTransform> avatarNode(const std::string& name,
                                              const osg::Vec3d& offset = osg::Vec3d());

/// A mesh piece: a transform that holds a small mesh.
osg::ref_ptr<osg::MatrixTransform> avatarPiece(const std::string& name,
                                               const osg::Matrixd& matrix = osg::Matrixd());

/// A bone at rest under its parent's frame.
osg::ref_ptr<KivAnimation::Bone> bone(const std::string& name, const osg::Vec3d& offset = osg::Vec3d());

/// A skeleton under a group, as the reader returns it.
osg::ref_ptr<osg::Group> skeletonOf(KivAnimation::Bone* root);

/// The avatar's analysis, run as the module runs it.
KivCharacterization::CommonTypeDef::SIveInfo analysed(osg::Group* avatar);

/// The pieces hung under a bone, as (wrapper, holder, copy); empty references where there is none of that
/// name.
struct AttachedPiece
{
    osg::ref_ptr<osg::MatrixTransform> wrapper;
    osg::ref_ptr<osg::MatrixTransform> holder;
    osg::ref_ptr<osg::MatrixTransform> copy;
};
AttachedPiece findPiece(const osg::Group& bone, const std::string& pieceName);

/// Hips, upper legs, spine, neck and head: enough for a whole load command. BVH, Y-up, centimetres, two
/// frames.
std::string smallFigureBvh();
/// The same with a LeftProps joint under the hips.
std::string smallFigureWithPropsBvh();
/// The avatar that fits it.
osg::ref_ptr<osg::Group> smallAvatar();

}  // namespace KivTestSupport
