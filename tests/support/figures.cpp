#include "tests/support/figures.h"

#include <osg/Geode>
#include <osg/Geometry>

#include "KivCharacterization/Characterization/modelloading.h"

namespace KivTestSupport {

osg::ref_ptr<osg::MatrixTransform> avatarNode(const std::string& name, const osg::Vec3d& offset)
{
    osg::ref_ptr<osg::MatrixTransform> node = new osg::MatrixTransform(osg::Matrixd::translate(offset));
    node->setName(name);
    return node;
}

osg::ref_ptr<osg::MatrixTransform> avatarPiece(const std::string& name, const osg::Matrixd& matrix)
{
    osg::ref_ptr<osg::MatrixTransform> piece = new osg::MatrixTransform(matrix);
    piece->setName(name);
    osg::ref_ptr<osg::Vec3Array> corners = new osg::Vec3Array;
    for (const float side : {-4.0f, 4.0f}) {
        corners->push_back(osg::Vec3(side, 0, 0));
        corners->push_back(osg::Vec3(0, side, 0));
        corners->push_back(osg::Vec3(0, 0, side));
    }
    osg::ref_ptr<osg::Geometry> mesh = new osg::Geometry;
    mesh->setVertexArray(corners.get());
    mesh->addPrimitiveSet(new osg::DrawArrays(GL_TRIANGLES, 0, 6));
    osg::ref_ptr<osg::Geode> geode = new osg::Geode;
    geode->addDrawable(mesh.get());
    piece->addChild(geode.get());
    return piece;
}

osg::ref_ptr<KivAnimation::Bone> bone(const std::string& name, const osg::Vec3d& offset)
{
    osg::ref_ptr<KivAnimation::Bone> joint = new KivAnimation::Bone(name);
    joint->setInitialMatrix(osg::Matrixd::translate(offset));
    joint->setMatrix(osg::Matrixd::translate(offset));
    return joint;
}

osg::ref_ptr<osg::Group> skeletonOf(KivAnimation::Bone* root)
{
    osg::ref_ptr<osg::Group> group = new osg::Group;
    osg::ref_ptr<KivAnimation::Skeleton> skeleton = new KivAnimation::Skeleton;
    skeleton->addChild(root);
    group->addChild(skeleton.get());
    return group;
}

KivCharacterization::CommonTypeDef::SIveInfo analysed(osg::Group* avatar)
{
    KivCharacterization::CommonTypeDef::SIveInfo info;
    info.node = avatar;
    KivCharacterization::analyseAvatar(avatar, info);
    return info;
}

namespace {

osg::MatrixTransform* transformAt(const osg::Group& group, unsigned int position)
{
    return position < group.getNumChildren()
               ? dynamic_cast<osg::MatrixTransform*>(const_cast<osg::Group&>(group).getChild(position))
               : nullptr;
}

}  // namespace

AttachedPiece findPiece(const osg::Group& bone, const std::string& pieceName)
{
    for (unsigned int i = 0; i < bone.getNumChildren(); ++i) {
        osg::MatrixTransform* wrapper = transformAt(bone, i);
        osg::MatrixTransform* holder = wrapper ? transformAt(*wrapper, 0) : nullptr;
        osg::MatrixTransform* copy = holder ? transformAt(*holder, 0) : nullptr;
        if (copy && copy->getName() != pieceName) {
            // On a props joint the props transform stands between wrapper and holder.
            holder = copy;
            copy = transformAt(*holder, 0);
        }
        if (copy && copy->getName() == pieceName) {
            return {wrapper, holder, copy};
        }
    }
    return {};
}

namespace {

const char* const kSmallFigureStart = R"(HIERARCHY
ROOT Hips
{
  OFFSET 0 96 0
  CHANNELS 6 Xposition Yposition Zposition Zrotation Xrotation Yrotation
  JOINT LeftUpLeg
  {
    OFFSET 9 -3 0
    CHANNELS 3 Zrotation Xrotation Yrotation
    JOINT LeftLeg
    {
      OFFSET 0 -43 0
      CHANNELS 3 Zrotation Xrotation Yrotation
      End Site
      {
        OFFSET 0 -50 0
      }
    }
  }
  JOINT RightUpLeg
  {
    OFFSET -9 -3 0
    CHANNELS 3 Zrotation Xrotation Yrotation
    End Site
    {
      OFFSET 0 -93 0
    }
  }
)";

const char* const kSmallFigureProps = R"(  JOINT LeftProps
  {
    OFFSET 30 10 0
    CHANNELS 3 Zrotation Xrotation Yrotation
    End Site
    {
      OFFSET 5 0 0
    }
  }
)";

const char* const kSmallFigureEnd = R"(  JOINT Neck
  {
    OFFSET 0 50 0
    CHANNELS 3 Zrotation Xrotation Yrotation
    JOINT Head
    {
      OFFSET 0 10 0
      CHANNELS 3 Zrotation Xrotation Yrotation
      End Site
      {
        OFFSET 0 18 0
      }
    }
  }
}
MOTION
Frames: 2
Frame Time: 0.5
)";

}  // namespace

std::string smallFigureBvh()
{
    return std::string(kSmallFigureStart) + kSmallFigureEnd +
           "0 96 0 0 0 0  0 0 0  0 0 0  0 0 0  0 0 0  0 0 0\n"
           "10 96 0 0 0 0  0 -30 0  0 40 0  0 0 0  0 0 0  0 0 0\n";
}

std::string smallFigureWithPropsBvh()
{
    return std::string(kSmallFigureStart) + kSmallFigureProps + kSmallFigureEnd +
           "0 96 0 0 0 0  0 0 0  0 0 0  0 0 0  0 0 0  0 0 0  0 0 0\n"
           "10 96 0 0 0 0  0 -30 0  0 40 0  0 0 0  0 0 0  0 0 0  0 0 0\n";
}

osg::ref_ptr<osg::Group> smallAvatar()
{
    osg::ref_ptr<osg::Group> avatar = new osg::Group;
    const auto hips = avatarNode("Hips", osg::Vec3d(0, 96, 0));
    const auto leftUpLeg = avatarNode("LeftUpLeg", osg::Vec3d(9, -3, 0));
    const auto leftLeg = avatarNode("LeftLeg", osg::Vec3d(0, -43, 0));
    const auto rightUpLeg = avatarNode("RightUpLeg", osg::Vec3d(-9, -3, 0));
    const auto neck = avatarNode("Neck", osg::Vec3d(0, 50, 0));
    const auto head = avatarNode("Head", osg::Vec3d(0, 10, 0));
    const auto props = avatarNode("LeftProps", osg::Vec3d(30, 10, 0));
    avatar->addChild(hips);
    hips->addChild(avatarPiece("Joint:Hips&Spine$"));
    hips->addChild(leftUpLeg);
    hips->addChild(rightUpLeg);
    hips->addChild(neck);
    hips->addChild(props);
    leftUpLeg->addChild(avatarPiece("Joint:LeftUpLeg&LeftLeg#Inner$"));
    leftUpLeg->addChild(leftLeg);
    neck->addChild(head);
    head->addChild(avatarPiece("Joint:Head$"));
    props->addChild(avatarPiece("Joint:LeftProps$"));
    return avatar;
}

}  // namespace KivTestSupport
