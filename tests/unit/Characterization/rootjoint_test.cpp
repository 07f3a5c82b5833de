#include "KivCharacterization/Characterization/rootjoint.h"

#include <gtest/gtest.h>
#include <osg/Group>

#include <string>
#include <vector>

#include "KivAnimation/updatebone.h"

namespace {

using KivAnimation::UpdateBone;
using KivCharacterization::takeOverRootJointMatrix;

/// An actor's root above a chain of nodes, each the first child of the one before, the last of them animated.
struct Actor
{
    explicit Actor(const std::vector<std::string>& names, const osg::Matrixd& matrix)
    {
        osg::ref_ptr<osg::Group> last = root;
        for (const std::string& name : names) {
            const osg::ref_ptr<osg::Group> next = new osg::Group;
            next->setName(name);
            last->addChild(next);
            last = next;
        }
        joint = last;
        update->setMatrix(matrix);
        joint->addUpdateCallback(update);
    }

    osg::ref_ptr<osg::Group> root = new osg::Group;
    osg::ref_ptr<osg::Group> joint;
    osg::ref_ptr<UpdateBone> update = new UpdateBone;
};

class RootJoint : public testing::Test
{
protected:
    bool isTakenOver(const Actor& from, const Actor& to) const
    {
        takeOverRootJointMatrix(*from.root, *to.root);
        return to.update->getMatrix() == kOld;
    }
    bool isTakenOverBetween(const std::vector<std::string>& names) const
    {
        return isTakenOver(Actor(names, kOld), Actor(names, kNew));
    }

    const osg::Matrixd kOld = osg::Matrixd::translate(1, 2, 3);
    const osg::Matrixd kNew = osg::Matrixd::translate(7, 8, 9);
};

TEST_F(RootJoint, isOnlyWhatIsCalledHipsBehindTheFirstMark)
{
    for (const char* name : {"Hips", "7#hips", "7#Hips2", "7#LeftHips", "7#8#Hips", "7#", "#", ""}) {
        EXPECT_FALSE(isTakenOverBetween({"Actor", name})) << name;
    }
    EXPECT_TRUE(isTakenOverBetween({"Actor", "7#Hips"}));
    EXPECT_TRUE(isTakenOverBetween({"Actor", "#Hips"}));
}

TEST_F(RootJoint, isReachedBelowJointsOfOtherNames)
{
    EXPECT_TRUE(isTakenOverBetween({"7#Armature", "Hips", "7#Reference", "7#Hips"}));
}

TEST_F(RootJoint, isTheFirstOfItsName)
{
    const Actor from({"7#Hips", "7#Hips"}, kOld);
    const Actor to({"7#Hips"}, kNew);
    EXPECT_FALSE(isTakenOver(from, to));
}

TEST_F(RootJoint, isNotLookedForBesideFirstChildren)
{
    const Actor from({"7#Hips"}, kOld);
    const Actor to({"7#Hips"}, kNew);
    to.root->insertChild(0, new osg::Group);
    EXPECT_FALSE(isTakenOver(from, to));
}

TEST_F(RootJoint, withoutAnUpdateGivesAndTakesNothing)
{
    const Actor from({"7#Hips"}, kOld);
    const Actor to({"7#Hips"}, kNew);
    from.joint->removeUpdateCallback(from.update);
    EXPECT_FALSE(isTakenOver(from, to));
    from.joint->addUpdateCallback(from.update);
    to.joint->removeUpdateCallback(to.update);
    EXPECT_FALSE(isTakenOver(from, to));
}

TEST_F(RootJoint, mayHaveOtherCallbacksBeforeItsUpdate)
{
    const Actor from({"7#Hips"}, kOld);
    const Actor to({"7#Hips"}, kNew);
    from.joint->removeUpdateCallback(from.update);
    from.joint->addUpdateCallback(new osg::NodeCallback);
    from.joint->addUpdateCallback(from.update);
    EXPECT_TRUE(isTakenOver(from, to));
}

}  // namespace
