#include <gtest/gtest.h>

#include <osg/Depth>
#include <osg/Material>
#include <osg/ShapeDrawable>

#include "tests/host/KivAnimation/testactor.h"

namespace {

using namespace KivAnimationTest;

const osg::Vec4f kRed(1, 0, 0, 1);
const osg::Vec4f kGreen(0, 1, 0, 1);

class ContactMarker : public testing::Test
{
protected:
    void SetUp() override
    {
        buildArm(m_actor);
        m_actor.setMotion(MotionTable());
    }

    const osg::Group* markerOf(const Bone& bone) const
    {
        return bone.getChild(bone.getNumChildren() - 1)->asGroup();
    }

    osg::Vec4f diffuseOf(const osg::Group& marker) const
    {
        const auto* material = dynamic_cast<const osg::Material*>(
            marker.getStateSet()->getAttribute(osg::StateAttribute::MATERIAL));
        EXPECT_EQ(material->getDiffuse(osg::Material::FRONT), material->getAmbient(osg::Material::BACK));
        return material->getDiffuse(osg::Material::FRONT);
    }

    TestActor m_actor;
};

TEST_F(ContactMarker, isRefusedForAJointThatIsNotThere)
{
    EXPECT_FALSE(m_actor.animation->ChangeJointContactColor("LeftFoot", kRed));
    EXPECT_FALSE(m_actor.animation->ChangeJointContactColor("", kRed));
    const osg::ref_ptr<KivAnimation::Animation> bare = new KivAnimation::Animation;
    EXPECT_FALSE(bare->ChangeJointContactColor("Hips", kRed));
}

TEST_F(ContactMarker, isRefusedOnceTheBoneIsGone)
{
    m_actor.attached = nullptr;
    m_actor.skeleton = nullptr;
    EXPECT_FALSE(m_actor.animation->ChangeJointContactColor("Hips", kRed));
}

TEST_F(ContactMarker, hasNoColourBeforeItIsPainted)
{
    osg::Vec4f color(9, 9, 9, 9);
    EXPECT_FALSE(m_actor.animation->getJointContactColor("Spine", color));
    EXPECT_EQ(color, osg::Vec4f(9, 9, 9, 9));
}

TEST_F(ContactMarker, isASmallSphereBehindTheBonesOfItsJoint)
{
    ASSERT_TRUE(m_actor.animation->ChangeJointContactColor("Spine", kRed));
    const Bone& spine = *m_actor.bones[1];
    ASSERT_EQ(spine.getNumChildren(), 2u);
    EXPECT_EQ(spine.getChild(0), m_actor.bones[2]);
    const osg::Group* marker = markerOf(spine);
    ASSERT_NE(marker, nullptr);
    const auto* drawable = dynamic_cast<const osg::ShapeDrawable*>(marker->getChild(0));
    ASSERT_NE(drawable, nullptr);
    const auto* sphere = dynamic_cast<const osg::Sphere*>(drawable->getShape());
    ASSERT_NE(sphere, nullptr);
    EXPECT_EQ(sphere->getRadius(), 2.5f);
    EXPECT_EQ(marker->getNodeMask(), 4u);
    EXPECT_EQ(marker->getStateSet()->getDataVariance(), osg::Object::DYNAMIC);
    EXPECT_EQ(diffuseOf(*marker), kRed);
}

TEST_F(ContactMarker, isDrawnInSightAndAgainBehindABodyWithoutDepthOfItsOwn)
{
    m_actor.animation->ChangeJointContactColor("Spine", kRed);
    const osg::Group* marker = markerOf(*m_actor.bones[1]);
    ASSERT_EQ(marker->getNumChildren(), 2u);
    const osg::Group* behind = marker->getChild(1)->asGroup();
    ASSERT_NE(behind, nullptr);
    EXPECT_EQ(behind->getChild(0), marker->getChild(0));
    const auto depthOf = [](const osg::Group& group) {
        return static_cast<const osg::Depth*>(group.getStateSet()->getAttribute(osg::StateAttribute::DEPTH));
    };
    EXPECT_EQ(depthOf(*marker)->getFunction(), osg::Depth::LESS);
    EXPECT_EQ(depthOf(*behind)->getFunction(), osg::Depth::GREATER);
    EXPECT_FALSE(depthOf(*marker)->getWriteMask());
    EXPECT_FALSE(depthOf(*behind)->getWriteMask());
}

TEST_F(ContactMarker, isRepaintedWithoutASecondSphere)
{
    m_actor.animation->ChangeJointContactColor("Spine", kRed);
    EXPECT_TRUE(m_actor.animation->ChangeJointContactColor("Spine", kGreen));
    EXPECT_EQ(m_actor.bones[1]->getNumChildren(), 2u);
    EXPECT_EQ(diffuseOf(*markerOf(*m_actor.bones[1])), kGreen);
    osg::Vec4f color;
    EXPECT_TRUE(m_actor.animation->getJointContactColor("Spine", color));
    EXPECT_EQ(color, kGreen);
}

TEST_F(ContactMarker, isFoundWhateverQualifierTheNameCarries)
{
    EXPECT_TRUE(m_actor.animation->ChangeJointContactColor("7#Head", kRed));
    osg::Vec4f color;
    EXPECT_TRUE(m_actor.animation->getJointContactColor("Head", color));
    EXPECT_EQ(color, kRed);
    EXPECT_FALSE(m_actor.animation->ChangeJointContactColor("7", kRed));
}

TEST_F(ContactMarker, isMadeAnewWhenSomebodyTookItAway)
{
    m_actor.animation->ChangeJointContactColor("Head", kRed);
    m_actor.bones[2]->removeChildren(0, 1);
    EXPECT_TRUE(m_actor.animation->ChangeJointContactColor("Head", kGreen));
    EXPECT_EQ(m_actor.bones[2]->getNumChildren(), 1u);
}

}  // namespace
