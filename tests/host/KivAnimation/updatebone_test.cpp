#include "KivAnimation/updatebone.h"

#include <gtest/gtest.h>

#include <osg/FrameStamp>
#include <osgUtil/UpdateVisitor>

#include <thread>

#include "KivAnimation/skeleton.h"
#include "tests/host/KivAnimation/testactor.h"

namespace {

using namespace KivAnimationTest;
using KivAnimation::UpdateBone;

void updateTraversal(osg::Node& node)
{
    osg::ref_ptr<osgUtil::UpdateVisitor> visitor = new osgUtil::UpdateVisitor;
    visitor->setFrameStamp(new osg::FrameStamp);
    node.accept(*visitor);
}

TEST(UpdateBoneTest, leavesAPlainTransformAlone)
{
    const osg::ref_ptr<osg::MatrixTransform> transform = new osg::MatrixTransform;
    transform->addUpdateCallback(new UpdateBone(osg::Matrixd::translate(1, 2, 3)));
    updateTraversal(*transform);
    EXPECT_TRUE(transform->getMatrix().isIdentity());
}

TEST(UpdateBoneTest, mayBeTheCallbackOfANodeThatIsNoTransform)
{
    const osg::ref_ptr<osg::Group> group = new osg::Group;
    group->addUpdateCallback(new UpdateBone);
    updateTraversal(*group);
    EXPECT_EQ(group->getNumChildren(), 0u);
}

TEST(UpdateBoneTest, givesItsMatrixToTheBoneAndPlacesTheBonesBelow)
{
    TestActor actor;
    buildArm(actor);
    actor.bones[1]->setMatrix(osg::Matrixd::translate(0, 0, 10));
    const osg::Matrixd matrix = osg::Matrixd::translate(1, 2, 3);
    dynamic_cast<UpdateBone&>(*actor.bones[0]->getUpdateCallback()).setMatrix(matrix);
    updateTraversal(*actor.skeleton);
    EXPECT_EQ(actor.bones[0]->getMatrix(), matrix);
    EXPECT_EQ(actor.bones[0]->getMatrixInSkeletonSpace(), matrix);
    EXPECT_EQ(actor.bones[1]->getMatrixInSkeletonSpace(), osg::Matrixd::translate(1, 2, 13));
    EXPECT_EQ(actor.bones[2]->getMatrixInSkeletonSpace(), osg::Matrixd::translate(1, 2, 13));
}

TEST(UpdateBoneTest, placesABoneBelowAnotherInTheSkeleton)
{
    const osg::ref_ptr<Bone> parent = new Bone("parent");
    const osg::ref_ptr<Bone> child = new Bone("child");
    parent->addChild(child);
    parent->setMatrixInSkeletonSpace(osg::Matrixd::translate(5, 0, 0));
    child->addUpdateCallback(new UpdateBone(osg::Matrixd::translate(0, 1, 0)));
    updateTraversal(*parent);
    EXPECT_EQ(child->getMatrixInSkeletonSpace(), osg::Matrixd::translate(5, 1, 0));
}

TEST(UpdateBoneTest, doesNotUndoWhatAnAnimationHasPosed)
{
    TestActor actor;
    buildArm(actor);
    actor.setMotion(scatteredTable(12, 2, 90.0f));
    actor.animation->pose(0.01);
    const osg::Matrixd posed = actor.bones[0]->getMatrix();
    EXPECT_EQ(dynamic_cast<UpdateBone&>(*actor.bones[0]->getUpdateCallback()).getMatrix(), posed);
    updateTraversal(*actor.skeleton);
    EXPECT_EQ(actor.bones[0]->getMatrix(), posed);
}

TEST(UpdateBoneTest, letsANewActorStandWhereTheOldOneStood)
{
    TestActor oldActor;
    buildArm(oldActor);
    oldActor.setMotion(scatteredTable(12, 2, 90.0f));
    oldActor.animation->pose(0.01);
    TestActor newActor;
    buildArm(newActor);
    newActor.setMotion(MotionTable());
    dynamic_cast<UpdateBone&>(*newActor.bones[0]->getUpdateCallback())
        .ApplyOtherMatrix(dynamic_cast<UpdateBone&>(*oldActor.bones[0]->getUpdateCallback()));
    newActor.animation->pose(0.0);
    updateTraversal(*newActor.skeleton);
    EXPECT_EQ(newActor.bones[0]->getMatrix(), oldActor.bones[0]->getMatrix());
}

TEST(UpdateBoneTest, mayTakeItsOwnMatrix)
{
    const osg::ref_ptr<UpdateBone> one = new UpdateBone(osg::Matrixd::translate(1, 0, 0));
    one->ApplyOtherMatrix(*one);
    EXPECT_EQ(one->getMatrix(), osg::Matrixd::translate(1, 0, 0));
}

TEST(UpdateBoneTest, exchangesMatricesBothWaysAtOnceWithoutBlocking)
{
    const osg::ref_ptr<UpdateBone> left = new UpdateBone(osg::Matrixd::translate(1, 1, 1));
    const osg::ref_ptr<UpdateBone> right = new UpdateBone(osg::Matrixd::translate(2, 2, 2));
    const auto exchange = [](UpdateBone& to, const UpdateBone& from) {
        for (int i = 0; i < 20000; ++i) {
            to.ApplyOtherMatrix(from);
        }
    };
    std::thread there(exchange, std::ref(*left), std::cref(*right));
    std::thread back(exchange, std::ref(*right), std::cref(*left));
    there.join();
    back.join();
    const osg::Vec3d place = left->getMatrix().getTrans();
    EXPECT_EQ(place.x(), place.z());
}

TEST(UpdateBoneTest, isReadWholeWhilePlaybackWrites)
{
    TestActor actor;
    actor.addJoint("Hips", -1, {shift(0, 0), shift(1, 0), shift(2, 0)});
    actor.setMotion(tableOf(1, 0.01, {0, 1}));
    const auto& update = dynamic_cast<const UpdateBone&>(*actor.bones[0]->getUpdateCallback());
    std::thread reader([&update] {
        for (int i = 0; i < 20000; ++i) {
            const osg::Vec3d place = update.getMatrix().getTrans();
            ASSERT_EQ(place.x(), place.z());
        }
    });
    for (int i = 0; i < 20000; ++i) {
        actor.animation->pose(i % 2 * 0.01);
    }
    reader.join();
}

}  // namespace
