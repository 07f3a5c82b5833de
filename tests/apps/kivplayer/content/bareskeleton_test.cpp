#include "apps/kivplayer/content/bareskeleton.h"

#include <gmock/gmock.h>
#include <osg/MatrixTransform>

#include "tests/apps/kivplayer/bones.h"

namespace {

using namespace KivPlayer;

void wear(osg::Group& bone, const osg::ref_ptr<osg::MatrixTransform>& holder)
{
    const osg::ref_ptr<osg::MatrixTransform> wrapper = new osg::MatrixTransform;
    const osg::ref_ptr<osg::MatrixTransform> copy = new osg::MatrixTransform;
    copy->setName("Joint:Spine$");
    bone.addChild(wrapper);
    wrapper->addChild(holder);
    holder->addChild(copy);
}

/// Two joints of that distance above each other, the upper one with a piece.
class BareSkeleton : public testing::Test
{
protected:
    LoadedActor actorOf(double low, double high)
    {
        const osg::ref_ptr<KivAnimation::Skeleton> skeleton = new KivAnimation::Skeleton;
        const osg::ref_ptr<osg::Group> root = new osg::Group;
        const osg::ref_ptr<KivAnimation::Bone> base = boneAt("0#Base", {0, 0, low});
        m_spTop = boneAt("0#Spine", {0, 0, high});
        base->addChild(m_spTop);
        skeleton->addChild(base);
        root->addChild(skeleton);
        m_spScene->addChild(root);
        wear(*m_spTop, new osg::MatrixTransform);
        LoadedActor actor;
        actor.name = "dog";
        actor.profile.whyNot = "it has a tail";
        actor.dressed = *DressedActor::find(*m_spScene, "0");
        return actor;
    }

    osg::ref_ptr<osg::Group> m_spScene = new osg::Group;
    osg::ref_ptr<KivAnimation::Bone> m_spTop;
};

TEST_F(BareSkeleton, isOfNoSizeWhereAllJointsAreOnePoint)
{
    LoadedActor actor = actorOf(7.0, 7.0);
    makeBare(actor.dressed);
    EXPECT_EQ(actor.dressed.positions().back(), osg::Vec3d());
}

TEST_F(BareSkeleton, isLeftAsItStandsWherePositionsAreNoNumbers)
{
    LoadedActor actor = actorOf(std::nan(""), std::nan(""));
    makeBare(actor.dressed);
    EXPECT_TRUE(actor.dressed.skeleton().getMatrix().isIdentity());
}

TEST_F(BareSkeleton, wearsNothing)
{
    LoadedActor actor = actorOf(0.0, 100.0);
    ASSERT_EQ(actor.dressed.pieces().size(), 1U);
    makeBare(actor.dressed);
    EXPECT_TRUE(actor.dressed.pieces().empty());
    EXPECT_EQ(m_spTop->getNumChildren(), 0U);
}

TEST_F(BareSkeleton, keepsASizeThatCanBeSeenBesidePeopleAndStandsOnTheGround)
{
    LoadedActor actor = actorOf(300.0, 400.0);
    makeBare(actor.dressed);
    EXPECT_NEAR(actor.dressed.positions().front().z(), 0.0, 1e-9);
    EXPECT_NEAR(actor.dressed.positions().back().z(), 100.0, 1e-9);
}

TEST_F(BareSkeleton, isScaledToAPersonsSizeWhereItIsTinyOrHuge)
{
    for (const double size : {0.2, 5000.0}) {
        m_spScene = new osg::Group;
        LoadedActor actor = actorOf(3.0 * size, 4.0 * size);
        makeBare(actor.dressed);
        EXPECT_NEAR(actor.dressed.positions().front().z(), 0.0, 1e-6) << size;
        EXPECT_NEAR(actor.dressed.positions().back().z(), 170.0, 1e-6) << size;
    }
}

TEST_F(BareSkeleton, isNoticedWithItsNameWhereThereAreOthers)
{
    LoadedActor person = actorOf(0.0, 100.0);
    LoadedActor dog = person;
    dog.isPerson = false;
    EXPECT_EQ(bareNotice({{0, person}}), "");
    EXPECT_TRUE(bareSkeletons({{0, person}}).empty());
    EXPECT_EQ(bareNotice({{0, dog}}), "not recognised as a person: it has a tail");
    EXPECT_EQ(bareNotice({{0, person}, {1, dog}}), "dog: not recognised as a person: it has a tail");
    EXPECT_EQ(bareSkeletons({{0, person}, {1, dog}}).size(), 1U);
}

}  // namespace
