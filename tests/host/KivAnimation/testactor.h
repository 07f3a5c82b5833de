#pragma once

#include <osg/Matrixd>
#include <osg/Switch>
#include <osg/ref_ptr>

#include <string>
#include <vector>

#include "KivAnimation/animation.h"
#include "KivAnimation/skeleton.h"

namespace KivAnimationTest {

using KivAnimation::Bone;
using KivAnimation::MotionTable;
using KivAnimation::PoseProgram;
using KivAnimation::PoseStep;

PoseStep translate(const osg::Vec3f& vector);
PoseStep rotate(const osg::Quat& rotation);
PoseStep shift(unsigned axis, std::uint32_t column, float factor = 1.0f);
PoseStep turn(unsigned axis, std::uint32_t column, float factor = 1.0f);

/// A skeleton, its program and its animation, built joint by joint.
struct TestActor
{
    TestActor();

    /// @param parent index of an earlier joint; -1 for a root.
    Bone* addJoint(const std::string& name, int parent, const std::vector<PoseStep>& steps);

    /// Gives the table to the animation, as it stands with the program.
    void setMotion(MotionTable table);

    /// What the joint's steps give for a row, as a product of matrices.
    osg::Matrixd expectedLocal(std::size_t joint, std::size_t row) const;

    osg::ref_ptr<KivAnimation::Skeleton> skeleton;
    osg::ref_ptr<osg::Switch> attached;
    osg::ref_ptr<KivAnimation::Animation> animation;
    std::vector<Bone*> bones;
    PoseProgram program;
    MotionTable table;
};

MotionTable tableOf(std::size_t columns, double frameTime, std::vector<float> values);

/// A table of angles and lengths that look random and are the same in every run.
MotionTable scatteredTable(std::size_t columns, std::size_t frames, float range);

/// Three joints in a row, the first with six channels, the others with three: 12 columns.
void buildArm(TestActor& actor);

double largestDifference(const osg::Matrixd& a, const osg::Matrixd& b);

}  // namespace KivAnimationTest
