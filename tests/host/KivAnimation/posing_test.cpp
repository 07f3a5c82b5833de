#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>
#include <utility>

#include "tests/host/KivAnimation/testactor.h"

namespace {

using namespace KivAnimationTest;

class Posing : public testing::Test
{
protected:
    /// Every bone's two matrices against the products of its steps' matrices.
    void expectRow(std::size_t row, double tolerance = 2e-4) const
    {
        std::vector<osg::Matrixd> inSkeleton;
        for (std::size_t i = 0; i < m_actor.bones.size(); ++i) {
            const osg::Matrixd local = m_actor.expectedLocal(i, row);
            const int parent = m_actor.program.joints[i].parent;
            inSkeleton.push_back(parent < 0 ? local : local * inSkeleton[static_cast<std::size_t>(parent)]);
            const Bone& bone = *m_actor.bones[i];
            EXPECT_LE(largestDifference(bone.getMatrix(), local), tolerance) << bone.getName();
            EXPECT_LE(largestDifference(bone.getMatrixInSkeletonSpace(), inSkeleton.back()), tolerance)
                << bone.getName();
        }
    }

    double turnAboutZ(const Bone& bone) const
    {
        const osg::Vec3d image = osg::Matrixd::transform3x3(osg::Vec3d(1, 0, 0), bone.getMatrix());
        return osg::RadiansToDegrees(std::atan2(image.y(), image.x()));
    }

    TestActor m_actor;
};

TEST_F(Posing, refusesATableWithFewerValuesThanItsRowsNeed)
{
    MotionTable table = tableOf(2, 0.1, {1, 2, 3, 4});
    table.frames = 3;
    EXPECT_THROW(m_actor.setMotion(table), std::invalid_argument);
    table.frames = static_cast<std::size_t>(-1);
    EXPECT_THROW(m_actor.setMotion(table), std::invalid_argument);
    EXPECT_EQ(m_actor.animation->frameCount(), 1u);
}

TEST_F(Posing, refusesAStepBeyondTheTablesColumns)
{
    m_actor.addJoint("Hips", -1, {turn(2, 2)});
    EXPECT_THROW(m_actor.setMotion(tableOf(2, 0.1, {1, 2})), std::invalid_argument);
}

TEST_F(Posing, refusesAProgramThatReachesBeyondItself)
{
    m_actor.addJoint("Hips", -1, {turn(2, 0)});
    const PoseProgram good = m_actor.program;
    m_actor.program.joints[0].stepCount = 2;
    EXPECT_THROW(m_actor.setMotion(tableOf(1, 0.1, {1})), std::invalid_argument);
    m_actor.program = good;
    m_actor.program.joints[0].firstStep = 0xffffffffu;
    EXPECT_THROW(m_actor.setMotion(tableOf(1, 0.1, {1})), std::invalid_argument);
    m_actor.program = good;
    m_actor.program.joints[0].parent = 0;
    EXPECT_THROW(m_actor.setMotion(tableOf(1, 0.1, {1})), std::invalid_argument);
    m_actor.program = good;
    m_actor.program.steps[0].axis = 3;
    EXPECT_THROW(m_actor.setMotion(tableOf(1, 0.1, {1})), std::invalid_argument);
}

TEST_F(Posing, doesNothingOnceTheBonesAreGone)
{
    buildArm(m_actor);
    m_actor.setMotion(scatteredTable(12, 3, 90.0f));
    m_actor.attached = nullptr;
    m_actor.skeleton = nullptr;
    m_actor.animation->pose(0.01);
    EXPECT_EQ(m_actor.animation->getAttachNodePtr(), nullptr);
    EXPECT_TRUE(m_actor.animation->hasAnimationFrameDataFlag());
}

TEST_F(Posing, goesOnWithoutABoneThatWasTakenOut)
{
    buildArm(m_actor);
    m_actor.setMotion(scatteredTable(12, 3, 90.0f));
    m_actor.bones[1]->removeChild(m_actor.bones[2]);
    m_actor.bones.pop_back();
    m_actor.animation->pose(0.01);
    expectRow(1);
}

TEST_F(Posing, letsTheAnimationDieBeforeItsBones)
{
    buildArm(m_actor);
    m_actor.setMotion(scatteredTable(12, 3, 90.0f));
    m_actor.animation = nullptr;
    m_actor.skeleton->removeChildren(0, 1);
    EXPECT_EQ(m_actor.skeleton->getNumChildren(), 0u);
}

TEST_F(Posing, letsTwoAnimationsOfOneSkeletonDieInAnyOrder)
{
    for (const bool firstDiesFirst : {true, false}) {
        TestActor actor;
        buildArm(actor);
        actor.setMotion(scatteredTable(12, 3, 90.0f));
        osg::ref_ptr<KivAnimation::Animation> other = osg::clone(actor.animation.get());
        osg::ref_ptr<KivAnimation::Animation>& first = firstDiesFirst ? actor.animation : other;
        osg::ref_ptr<KivAnimation::Animation>& second = firstDiesFirst ? other : actor.animation;
        first = nullptr;
        actor.bones[1]->removeChild(actor.bones[2]);
        second->pose(0.01);
        EXPECT_FALSE(second->ChangeJointContactColor("Head", osg::Vec4f()));
        EXPECT_TRUE(second->ChangeJointContactColor("Spine", osg::Vec4f()));
        second = nullptr;
        actor.skeleton->removeChildren(0, 1);
        EXPECT_EQ(actor.skeleton->getNumChildren(), 0u);
    }
}

TEST_F(Posing, takesAnotherMotionAfterABoneWasTakenOut)
{
    buildArm(m_actor);
    m_actor.setMotion(scatteredTable(12, 3, 90.0f));
    m_actor.bones[1]->removeChild(m_actor.bones[2]);
    m_actor.program.joints.pop_back();
    m_actor.bones.pop_back();
    m_actor.setMotion(scatteredTable(12, 3, 60.0f));
    m_actor.animation->pose(0.01);
    expectRow(1);
}

TEST_F(Posing, letsBonesAndAnimationsDieOnTwoThreadsAtOnce)
{
    for (int round = 0; round < 50; ++round) {
        TestActor actor;
        buildArm(actor);
        actor.setMotion(scatteredTable(12, 2, 90.0f));
        const osg::ref_ptr<KivAnimation::Animation> lasting = osg::clone(actor.animation.get());
        std::thread otherThread(
            [animation = std::exchange(actor.animation, nullptr)]() mutable { animation = nullptr; });
        actor.skeleton->removeChildren(0, 1);
        otherThread.join();
        EXPECT_FALSE(lasting->ChangeJointContactColor("Head", osg::Vec4f()));
    }
}

TEST_F(Posing, takesStrangeNumbersWithoutLosingTheRotation)
{
    m_actor.addJoint("Hips", -1, {turn(2, 0), turn(0, 1), turn(1, 2)});
    m_actor.setMotion(tableOf(3, 0.1, {std::nanf(""), 3e38f, 90.0f}));
    m_actor.animation->pose(0.0);
    EXPECT_LE(largestDifference(m_actor.bones[0]->getMatrix(),
                                osg::Matrixd::rotate(osg::PI_2, osg::Vec3d(0, 1, 0))),
              1e-6);
}

TEST_F(Posing, showsEveryRowAtItsOwnTime)
{
    buildArm(m_actor);
    m_actor.setMotion(scatteredTable(12, 40, 179.0f));
    for (const std::size_t row : {0u, 1u, 2u, 3u, 17u, 16u, 39u, 0u}) {
        m_actor.animation->pose(static_cast<double>(row) * 0.01);
        expectRow(row);
    }
}

TEST_F(Posing, showsExactlyTheRowHoweverItsTimeWasReached)
{
    buildArm(m_actor);
    m_actor.setMotion(scatteredTable(12, 1000, 90.0f));
    double time = 0.0;
    for (int i = 0; i < 700; ++i) {
        time += 0.01;
    }
    m_actor.animation->pose(time);
    const osg::Matrixd reached = m_actor.bones[2]->getMatrixInSkeletonSpace();
    m_actor.animation->pose(0.0);
    m_actor.animation->pose(7.0);
    EXPECT_EQ(m_actor.bones[2]->getMatrixInSkeletonSpace(), reached);
}

TEST_F(Posing, carriesOutEveryOrderOfThreeTurns)
{
    const unsigned orders[][3] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1},
                                  {2, 1, 0}, {2, 0, 2}, {0, 0, 1}, {1, 1, 1}};
    for (const auto& order : orders) {
        m_actor.addJoint(
            "Joint", m_actor.bones.empty() ? -1 : 0,
            {translate({1, 2, 3}), turn(order[0], 0), turn(order[1], 1, -1.0f), turn(order[2], 2, 0.5f)});
    }
    m_actor.setMotion(scatteredTable(3, 5, 360.0f));
    m_actor.animation->pose(0.03);
    expectRow(3);
}

TEST_F(Posing, carriesOutStepsInWhateverOrderTheyCome)
{
    const osg::Quat tilt(0.4, osg::Vec3d(1, 2, 3));
    m_actor.addJoint("Root", -1, {turn(2, 0), shift(0, 1), turn(1, 2), translate({4, 5, 6}), rotate(tilt)});
    m_actor.addJoint("Fixed", 0, {translate({1, 0, 0}), rotate(tilt), translate({0, 1, 0}), rotate(tilt)});
    m_actor.addJoint("Late", 1, {rotate(tilt), turn(0, 3), turn(1, 4), turn(2, 5)});
    m_actor.addJoint("Mixed", 2,
                     {shift(2, 1, 0.1f), translate({0, 0, 7}), turn(0, 3), turn(1, 4), turn(2, 5)});
    m_actor.addJoint("Folded", 3,
                     {translate({1, 2, 3}), turn(2, 0), turn(0, 2), turn(1, 4), translate({3, 2, 1}),
                      turn(2, 5), turn(0, 3), turn(1, 2)});
    m_actor.addJoint("Single", 3, {translate({1, 2, 3}), turn(2, 0)});
    m_actor.addJoint("Bare", 3, {});
    m_actor.setMotion(scatteredTable(6, 4, 100.0f));
    m_actor.animation->pose(0.02);
    expectRow(2, 1e-3);
}

TEST_F(Posing, isTheSameWhenManyRowsAreSkippedOrTakenBackwards)
{
    buildArm(m_actor);
    m_actor.setMotion(scatteredTable(12, 20, 60.0f));
    TestActor other;
    buildArm(other);
    for (const double time : {0.005, 0.015, 0.013, 0.004, 0.19, 0.185, 0.0951, 0.01, 0.014}) {
        m_actor.animation->pose(time);
        other.setMotion(m_actor.table);  // knows of no earlier row
        other.animation->pose(time);
        EXPECT_EQ(m_actor.bones[2]->getMatrixInSkeletonSpace(), other.bones[2]->getMatrixInSkeletonSpace());
    }
}

TEST_F(Posing, blendsTranslationsLinearly)
{
    m_actor.addJoint("Hips", -1, {shift(0, 0), shift(1, 1)});
    m_actor.setMotion(tableOf(2, 0.5, {0, 10, 8, -10}));
    m_actor.animation->pose(0.125);
    EXPECT_LE((m_actor.bones[0]->getMatrix().getTrans() - osg::Vec3d(2, 5, 0)).length(), 1e-5);
}

TEST_F(Posing, turnsEvenlyBetweenRowsOnTheShorterArc)
{
    m_actor.addJoint("Hips", -1, {turn(2, 0)});
    m_actor.setMotion(tableOf(1, 1.0, {170, -170, -90, 0}));
    m_actor.animation->pose(0.25);
    EXPECT_NEAR(turnAboutZ(*m_actor.bones[0]), 175.0, 0.02);
    m_actor.animation->pose(0.75);
    EXPECT_NEAR(turnAboutZ(*m_actor.bones[0]), -175.0, 0.02);
    m_actor.animation->pose(1.25);
    EXPECT_NEAR(turnAboutZ(*m_actor.bones[0]), -150.0, 0.02);
    m_actor.animation->pose(2.1);
    EXPECT_NEAR(turnAboutZ(*m_actor.bones[0]), -81.0, 0.02);
}

TEST_F(Posing, keepsItsAxesPerpendicularBetweenRows)
{
    buildArm(m_actor);
    m_actor.setMotion(scatteredTable(12, 10, 175.0f));
    for (double time = 0.0; time < 0.09; time += 0.0007) {
        m_actor.animation->pose(time);
        for (const Bone* bone : m_actor.bones) {
            const osg::Matrixd& m = bone->getMatrix();
            const osg::Vec3d x(m(0, 0), m(0, 1), m(0, 2)), y(m(1, 0), m(1, 1), m(1, 2));
            ASSERT_NEAR(x.length(), 1.0, 1e-12);
            ASSERT_NEAR(x * y, 0.0, 1e-12);
            ASSERT_NEAR((x ^ y) * osg::Vec3d(m(2, 0), m(2, 1), m(2, 2)), 1.0, 1e-12);
        }
    }
}

TEST_F(Posing, isHeldAtBothEndsAndReachesTheLastRow)
{
    m_actor.addJoint("Hips", -1, {shift(0, 0)});
    m_actor.setMotion(tableOf(1, 0.1, {1, 2, 3}));
    for (const double late : {0.2, 0.25, 1e9}) {
        m_actor.animation->pose(late);
        EXPECT_EQ(m_actor.bones[0]->getMatrix().getTrans().x(), 3.0);
    }
    for (const double early : {-1.0, -1e-9, std::nan("")}) {
        m_actor.animation->pose(early);
        EXPECT_EQ(m_actor.bones[0]->getMatrix().getTrans().x(), 1.0);
    }
}

TEST_F(Posing, showsTheOnlyRowAtAnyTime)
{
    m_actor.addJoint("Hips", -1, {shift(0, 0)});
    for (const double frameTime : {0.1, 0.0}) {
        m_actor.setMotion(tableOf(1, frameTime, {5}));
        m_actor.animation->pose(3.0);
        EXPECT_EQ(m_actor.bones[0]->getMatrix().getTrans().x(), 5.0);
        EXPECT_EQ(m_actor.animation->duration(), 0.0);
    }
}

TEST_F(Posing, showsTheFirstOfRowsThatTakeNoTime)
{
    m_actor.addJoint("Hips", -1, {shift(0, 0)});
    m_actor.setMotion(tableOf(1, 0.0, {5, 6, 7}));
    m_actor.animation->pose(3.0);
    EXPECT_EQ(m_actor.bones[0]->getMatrix().getTrans().x(), 5.0);
}

TEST_F(Posing, bringsAFixedJointBackToItsPlace)
{
    m_actor.addJoint("Hips", -1, {shift(0, 0)});
    m_actor.addJoint("HipsEnd", 0, {translate({0, 0, 10})});
    m_actor.setMotion(tableOf(1, 0.1, {5, 6}));
    m_actor.bones[1]->setMatrix(osg::Matrixd::scale(3, 3, 3));
    m_actor.animation->pose(0.05);
    EXPECT_EQ(m_actor.bones[1]->getMatrix(), osg::Matrixd::translate(0, 0, 10));
}

TEST_F(Posing, leavesASkeletonWithoutRowsAsItIs)
{
    buildArm(m_actor);
    m_actor.setMotion(MotionTable());
    const osg::Matrixd inherited = osg::Matrixd::translate(100, 0, 90);
    m_actor.bones[0]->setMatrix(inherited);
    m_actor.animation->pose(1.0);
    EXPECT_EQ(m_actor.bones[0]->getMatrix(), inherited);
    EXPECT_TRUE(m_actor.animation->hasAnimationFrameDataFlag());
    EXPECT_TRUE(m_actor.attached->getValue(0));
}

}  // namespace
