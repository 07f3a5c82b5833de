#include "apps/kivplayer/content/avatarfile.h"

#include <gmock/gmock.h>
#include <osg/MatrixTransform>
#include <osgDB/WriteFile>

#include "tests/apps/kivplayer/scratchfolder.h"

namespace {

using KivPlayer::AvatarFile;
using testing::ElementsAre;
using testing::Key;

osg::ref_ptr<osg::MatrixTransform> node(const std::string& name, const osg::Vec3d& offset = {})
{
    osg::ref_ptr<osg::MatrixTransform> node = new osg::MatrixTransform(osg::Matrixd::translate(offset));
    node->setName(name);
    return node;
}

class AvatarFileTest : public ScratchFolder
{
};

TEST_F(AvatarFileTest, isEmptyWhereThereIsNoneOrNoAvatarInIt)
{
    EXPECT_TRUE(AvatarFile().isEmpty());
    EXPECT_TRUE(AvatarFile::read(path("nowhere.ive")).isEmpty());
    EXPECT_TRUE(AvatarFile::read(write("text.ive", "this is no avatar")).isEmpty());
}

TEST_F(AvatarFileTest, knowsThePiecesOfEveryJointAndTheSegmentsBetweenJoints)
{
    const osg::ref_ptr<osg::MatrixTransform> hips = node("Hips");
    const osg::ref_ptr<osg::MatrixTransform> spine = node("Spine", {0, 3, 4});
    hips->addChild(node("Joint:Hips$"));
    hips->addChild(node("Joint:Hips#1$"));
    hips->addChild(spine);
    osgDB::writeNodeFile(*hips, path("avatar.ive"));
    const AvatarFile avatar = AvatarFile::read(path("avatar.ive"));
    EXPECT_THAT(avatar.joints, ElementsAre(Key("Hips"), Key("Spine")));
    EXPECT_THAT(avatar.joints.at("Hips"), ElementsAre("Joint:Hips$", "Joint:Hips#1$"));
    EXPECT_TRUE(avatar.joints.at("Spine").empty());
    ASSERT_THAT(avatar.segments, ElementsAre(Key("Hips&Spine")));
    EXPECT_DOUBLE_EQ(avatar.segments.at("Hips&Spine").length, 5.0);
    EXPECT_EQ(avatar.segments.at("Hips&Spine").offset, osg::Vec3d(0, 3, 4));
}

}  // namespace
