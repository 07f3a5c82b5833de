#include <gtest/gtest.h>
#include <osg/ref_ptr>

#include "KivAnimation/bone.h"

namespace {

using KivAnimation::Bone;

TEST(BoneTest, isMadeAsTheLastChildOfItsParentWhichHoldsIt)
{
    const osg::ref_ptr<Bone> hips = new Bone("Hips");
    const osg::ref_ptr<osg::Group> first = new osg::Group;
    hips->addChild(first);
    const osg::ref_ptr<Bone> spine = new Bone("Spine", *hips);
    EXPECT_EQ(spine->getName(), "Spine");
    ASSERT_EQ(hips->getNumChildren(), 2U);
    EXPECT_EQ(hips->getChild(1), spine);
    ASSERT_EQ(spine->getNumParents(), 1U);
    EXPECT_EQ(spine->getParent(0), hips);
    EXPECT_EQ(spine->getBoneParent(), hips);
    EXPECT_EQ(spine->referenceCount(), 2);
    EXPECT_TRUE(hips->removeChild(spine));
    EXPECT_EQ(spine->getNumParents(), 0U);
    EXPECT_EQ(spine->referenceCount(), 1);
}

TEST(BoneTest, belowAnotherCountsWhatIsHungOnItLater)
{
    const osg::ref_ptr<Bone> hips = new Bone("Hips");
    Bone* spine = new Bone("Spine", *hips);
    spine->addUpdateCallback(new osg::NodeCallback);
    EXPECT_EQ(hips->getNumChildrenRequiringUpdateTraversal(), 1U);
    hips->removeChild(spine);
    EXPECT_EQ(hips->getNumChildrenRequiringUpdateTraversal(), 0U);
}

}  // namespace
