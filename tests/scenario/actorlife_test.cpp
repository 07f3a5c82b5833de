#include <gtest/gtest.h>
#include <osg/Switch>

#include "tests/scenario/hostfixture.h"
#include "tests/support/builtpaths.h"
#include "tests/support/figures.h"
#include "tests/support/motionlibrary.h"

namespace {

using namespace KivTestSupport;

std::string sample(const std::string& name)
{
    return readWholeFile(std::string(KivTestSupport::kRuntimeRoot) + "/Data/BVH/" + name + ".bvh");
}

class ActorLife : public ShippedHost
{
};

TEST_F(ActorLife, everyShippedMotionDressesAnActor)
{
    int index = 0;
    for (const char* name : {"walk", "wave", "pass_left", "pass_right", "juggle"}) {
        EXPECT_TRUE(load(sample(name), index++, name)) << KivReader::ReaderWriterBVH::lastError();
    }
    EXPECT_EQ(scene().getNumChildren(), 5u);
    EXPECT_EQ(playback().animationCount(), 5u);
    updateScene();
}

TEST_F(ActorLife, aBrokenMotionTouchesNoOtherActor)
{
    ASSERT_TRUE(load(smallFigureBvh(), 1, "One"));
    const osg::Node* one = scene().getChild(0);
    EXPECT_FALSE(load("this is no motion", 2, "Two"));
    EXPECT_EQ(scene().getNumChildren(), 1u);
    EXPECT_EQ(scene().getChild(0), one);
    EXPECT_EQ(playback().animationCount(), 1u);
    EXPECT_NE(KivReader::ReaderWriterBVH::lastError(), "");
}

TEST_F(ActorLife, loadingAnIndexTwiceReplacesTheActor)
{
    ASSERT_TRUE(load(sample("walk"), 3, "Walker"));
    const osg::ref_ptr<osg::Node> first = scene().getChild(0);
    ASSERT_TRUE(load(sample("wave"), 3, "Waver"));
    ASSERT_EQ(scene().getNumChildren(), 1u);
    EXPECT_NE(scene().getChild(0), first.get());
    EXPECT_EQ(first->getNumParents(), 0u);
    EXPECT_EQ(playback().animationCount(), 1u);
}

TEST_F(ActorLife, everyActorTakesItsOwnMarkerAlong)
{
    const auto sphereOf = [](unsigned int actor) {
        return scene().getChild(actor)->asGroup()->getChild(1)->asGroup()->getChild(0)->asGroup()->getChild(
            0);
    };
    ASSERT_TRUE(load(smallFigureBvh(), 1, "Ann"));
    ASSERT_TRUE(load(smallFigureBvh(), 2, "Bob"));
    const osg::observer_ptr<osg::Node> annsSphere = sphereOf(0);
    const osg::observer_ptr<osg::Node> bobsSphere = sphereOf(1);
    ASSERT_TRUE(remove(1, 1));
    EXPECT_FALSE(annsSphere.valid());
    EXPECT_TRUE(bobsSphere.valid());
}

TEST_F(ActorLife, removedActorsLeaveNothingBehind)
{
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(load(smallFigureWithPropsBvh(), 1, "One"));
        ASSERT_TRUE(load(smallFigureBvh(), 2, "Two"));
        updateScene();
        osg::observer_ptr<osg::Node> one = scene().getChild(0);
        EXPECT_TRUE(remove(1, 1));
        EXPECT_FALSE(one.valid());
        EXPECT_TRUE(remove(0, 0));
        EXPECT_EQ(scene().getNumChildren(), 0u);
        EXPECT_EQ(playback().animationCount(), 0u);
    }
}

TEST_F(ActorLife, aReleasedManagerStartsAfreshAndLoadsAgain)
{
    ASSERT_TRUE(load(smallFigureBvh(), 1, "One"));
    ASSERT_TRUE(remove(0, 0));
    KivCharacterization::CharacterizationManager::releaseIns();
    ASSERT_TRUE(manager().initalCharacterModel(KivTestSupport::kRuntimeRoot));
    EXPECT_TRUE(load(smallFigureBvh(), 1, "One"));
}

TEST_F(ActorLife, theSharedMotionsOfTheTargetRigDressWholeFigures)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    EXPECT_TRUE(
        load(readWholeFile(motionLibrary() / "synthetic" / "target_59j_3ch_zxy.bvh"), 1, "Synthetic"));
    EXPECT_TRUE(load(readWholeFile(motionLibrary() / "real" / "geno_stance_6ch_fingers.bvh"), 2, "Real"));
    updateScene();
    for (unsigned int i = 0; i < scene().getNumChildren(); ++i) {
        const osg::BoundingSphere bound = scene().getChild(i)->getBound();
        EXPECT_TRUE(bound.valid());
        EXPECT_GT(bound.radius(), 60.0f);
        EXPECT_LT(bound.radius(), 200.0f);
    }
}

}  // namespace
