#include "apps/kivplayer/analysis/sampledmotion.h"

#include <gmock/gmock.h>

#include "tests/apps/kivplayer/bones.h"

namespace {

using namespace KivPlayer;
using testing::ElementsAre;

/// A skeleton without a motion, of joints side by side below a root.
DressedActor actorOf(osg::Group& scene, const std::vector<std::pair<std::string, osg::Vec3d>>& joints)
{
    const osg::ref_ptr<KivAnimation::Skeleton> skeleton = new KivAnimation::Skeleton;
    const osg::ref_ptr<osg::Group> root = new osg::Group;
    const osg::ref_ptr<KivAnimation::Bone> first = boneAt("0#" + joints[0].first, joints[0].second);
    for (std::size_t i = 1; i < joints.size(); ++i)
        first->addChild(boneAt("0#" + joints[i].first, joints[i].second));
    skeleton->addChild(first);
    root->addChild(skeleton);
    scene.addChild(root);
    return *DressedActor::find(scene, "0");
}

TEST(SampledMotion, isOneMomentWhereNothingMoves)
{
    const osg::ref_ptr<osg::Group> scene = new osg::Group;
    const DressedActor actor = actorOf(*scene, {{"Base", {1, 2, 3}}, {"Tip", {1, 2, 9}}});
    const SampledMotion sampled = sampleMotion(actor, nullptr, {0.0, 10.0});
    EXPECT_EQ(sampled.moments(), 1U);
    EXPECT_THAT(sampled.positions, ElementsAre(osg::Vec3d(1, 2, 3), osg::Vec3d(1, 2, 9)));
    EXPECT_EQ(sampled.front, osg::Vec3d()) << "nothing tells where it faces";
    EXPECT_EQ(sampled.box.zMax(), 9.0f);
}

TEST(SampledMotion, hasItsLabelAboveTheHeadOrElseTheHighestJoint)
{
    const osg::ref_ptr<osg::Group> scene = new osg::Group;
    const DressedActor chain = actorOf(*scene, {{"Base", {0, 0, 3}}, {"Tip", {0, 0, 9}}});
    EXPECT_EQ(headOf(chain.joints(), chain.positions()), osg::Vec3d(0, 0, 9));
    const osg::ref_ptr<osg::Group> other = new osg::Group;
    const DressedActor person =
        actorOf(*other, {{"Hips", {0, 0, 90}}, {"Head", {0, 0, 160}}, {"LeftHand", {0, 0, 200}}});
    EXPECT_EQ(headOf(person.joints(), person.positions()), osg::Vec3d(0, 0, 160));
    EXPECT_EQ(headOf({}, {}), osg::Vec3d());
}

TEST(SampledMotion, facesAwayFromTheLineBetweenTheSides)
{
    const osg::ref_ptr<osg::Group> scene = new osg::Group;
    const DressedActor actor =
        actorOf(*scene, {{"Hips", {0, 0, 90}}, {"LeftUpLeg", {9, 0, 85}}, {"RightUpLeg", {-9, 0, 85}}});
    EXPECT_EQ(sampleMotion(actor, nullptr, {0.0, 0.0}).front, osg::Vec3d(0, -1, 0));
}

TEST(SampledMotion, leavesOutTheTimesBesideThrownFramesUnlessThereAreNoOthers)
{
    EXPECT_EQ(sampleTimes(0.0, 0.0, 0.1, {}).size(), 1U);
    const std::vector<double> all = sampleTimes(0.0, 1.0, 0.1, {});
    EXPECT_EQ(all.front(), 0.0);
    EXPECT_EQ(all.back(), 1.0);
    const std::vector<double> kept = sampleTimes(0.0, 1.0, 0.1, {3, 10});
    EXPECT_LT(kept.size(), all.size());
    for (const double time : kept)
        EXPECT_TRUE(time <= 0.2 || (time >= 0.4 && time <= 0.9)) << time;
    EXPECT_EQ(sampleTimes(0.0, 0.1, 0.1, {0, 1}), std::vector<double>{0.0});
}

TEST(SampledMotion, canBeSeenFromThePointBelowTheRoot)
{
    SampledMotion sampled;
    sampled.joints = 2;
    sampled.positions = {{5, 6, 7}, {5, 6, 9}, {8, 6, 7}, {9, 6, 9}};
    sampled.heads = {{5, 6, 9}, {9, 6, 9}};
    EXPECT_THAT(sampled.positionsOverGround(), ElementsAre(osg::Vec3d(0, 0, 7), osg::Vec3d(0, 0, 9),
                                                           osg::Vec3d(0, 0, 7), osg::Vec3d(1, 0, 9)));
    EXPECT_THAT(sampled.headsOverGround(), ElementsAre(osg::Vec3d(0, 0, 9), osg::Vec3d(1, 0, 9)));
    EXPECT_EQ(groundBelow({1, 2, 3}), osg::Vec3d(1, 2, 0));
}

}  // namespace
