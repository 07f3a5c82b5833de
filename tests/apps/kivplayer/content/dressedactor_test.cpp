#include "apps/kivplayer/content/dressedactor.h"

#include <gmock/gmock.h>
#include <osg/Billboard>
#include <osgText/Text>

#include "tests/apps/kivplayer/bones.h"

namespace {

using KivAnimation::Bone;
using KivPlayer::DressedActor;
using testing::ElementsAre;

osg::ref_ptr<osg::MatrixTransform> transform(const std::string& name = {})
{
    osg::ref_ptr<osg::MatrixTransform> transform = new osg::MatrixTransform;
    transform->setName(name);
    return transform;
}

/// Hips and a head with an end, the head with a piece; a step aside and a label.
class DressedActorTest : public testing::Test
{
protected:
    void SetUp() override
    {
        const osg::ref_ptr<Bone> hips = boneAt("3#Hips", {0, 0, 90});
        const osg::ref_ptr<Bone> head = boneAt("3#Head", {0, 0, 160});
        const osg::ref_ptr<osg::MatrixTransform> wrapper = transform();
        m_spHolder->addChild(transform("Joint:Head$"));
        wrapper->addChild(m_spHolder);
        head->addChild(wrapper);
        head->addChild(boneAt("3#HeadEnd", {0, 0, 180}));
        hips->addChild(head);
        const osg::ref_ptr<KivAnimation::Skeleton> skeleton = new KivAnimation::Skeleton;
        skeleton->addChild(hips);
        const osg::ref_ptr<osg::MatrixTransform> aside = transform();
        aside->setMatrix(osg::Matrixd::translate(10, 0, 0));
        aside->addChild(skeleton);
        m_spActor->addChild(aside);
        m_spScene->addChild(new osg::Group);
        m_spScene->addChild(m_spActor);
    }

    osg::ref_ptr<osg::Group> m_spScene = new osg::Group;
    osg::ref_ptr<osg::Group> m_spActor = new osg::Group;
    osg::ref_ptr<osg::MatrixTransform> m_spHolder = new osg::MatrixTransform;
};

TEST_F(DressedActorTest, isNotFoundUnderAnotherIdNorInAnEmptyScene)
{
    osg::ref_ptr<osg::Group> empty = new osg::Group;
    EXPECT_FALSE(DressedActor::find(*empty, "3"));
    for (const char* id : {"", "1", "33", "3#"})
        EXPECT_FALSE(DressedActor::find(*m_spScene, id)) << id;
}

TEST_F(DressedActorTest, hasItsJointsParentsFirstWithoutQualifier)
{
    const auto actor = DressedActor::find(*m_spScene, "3");
    ASSERT_TRUE(actor);
    EXPECT_EQ(&actor->root(), m_spActor.get());
    EXPECT_THAT(actor->jointNames(), ElementsAre("Hips", "Head", "HeadEnd"));
    EXPECT_FALSE(actor->joints()[1].isLeaf) << "what it wears is no joint, but an end is";
    EXPECT_TRUE(actor->joints()[2].isLeaf);
}

TEST_F(DressedActorTest, tellsPositionsOfTheSceneAndThePiecesWithWhatCarriesThem)
{
    const auto actor = DressedActor::find(*m_spScene, "3");
    ASSERT_TRUE(actor);
    EXPECT_THAT(actor->positions(),
                ElementsAre(osg::Vec3d(10, 0, 90), osg::Vec3d(10, 0, 160), osg::Vec3d(10, 0, 180)));
    ASSERT_EQ(actor->pieces().size(), 1U);
    EXPECT_EQ(actor->pieces()[0].name, "Joint:Head$");
    EXPECT_EQ(actor->pieces()[0].joint, "Head");
    EXPECT_EQ(actor->pieces()[0].holder, m_spHolder);
}

TEST_F(DressedActorTest, hasTheSwitchAboveItsLabelWhereThereIsOne)
{
    const auto actor = DressedActor::find(*m_spScene, "3");
    EXPECT_EQ(actor->labelSwitch(), nullptr);
    const osg::ref_ptr<osg::Switch> label = new osg::Switch;
    const osg::ref_ptr<osg::Billboard> billboard = new osg::Billboard;
    billboard->addDrawable(new osgText::Text);
    label->addChild(billboard);
    m_spActor->addChild(new osg::Switch);
    m_spActor->addChild(label);
    EXPECT_EQ(actor->labelSwitch(), label.get());
}

}  // namespace
