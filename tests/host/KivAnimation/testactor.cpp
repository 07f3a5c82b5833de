#include "tests/host/KivAnimation/testactor.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace KivAnimationTest {

PoseStep translate(const osg::Vec3f& vector)
{
    PoseStep step;
    step.kind = PoseStep::Kind::Translate;
    step.vector = vector;
    return step;
}

PoseStep rotate(const osg::Quat& rotation)
{
    PoseStep step;
    step.kind = PoseStep::Kind::Rotate;
    step.rotation = rotation;
    return step;
}

PoseStep shift(unsigned axis, std::uint32_t column, float factor)
{
    PoseStep step;
    step.kind = PoseStep::Kind::Shift;
    step.axis = static_cast<std::uint8_t>(axis);
    step.column = column;
    step.factor = factor;
    return step;
}

PoseStep turn(unsigned axis, std::uint32_t column, float factor)
{
    PoseStep step = shift(axis, column, factor);
    step.kind = PoseStep::Kind::Turn;
    return step;
}

TestActor::TestActor()
    : skeleton(new KivAnimation::Skeleton), attached(new osg::Switch), animation(new KivAnimation::Animation)
{
    attached->addChild(skeleton);
    attached->setAllChildrenOff();
    animation->setAttachNodePtr(attached);
}

Bone* TestActor::addJoint(const std::string& name, int parent, const std::vector<PoseStep>& steps)
{
    osg::ref_ptr<Bone> bone = new Bone(name);
    PoseProgram::Joint joint;
    joint.bone = bone;
    joint.parent = parent;
    joint.firstStep = static_cast<std::uint32_t>(program.steps.size());
    joint.stepCount = static_cast<std::uint32_t>(steps.size());
    if (parent < 0) {
        osg::ref_ptr<KivAnimation::UpdateBone> update = new KivAnimation::UpdateBone;
        bone->addUpdateCallback(update);
        joint.update = update;
        skeleton->addChild(bone);
    } else {
        bones[static_cast<std::size_t>(parent)]->addChild(bone);
    }
    program.steps.insert(program.steps.end(), steps.begin(), steps.end());
    program.joints.push_back(joint);
    bones.push_back(bone);
    return bone;
}

void TestActor::setMotion(MotionTable newTable)
{
    table = newTable;
    animation->setMotion(std::move(newTable), program);
}

osg::Matrixd TestActor::expectedLocal(std::size_t joint, std::size_t row) const
{
    osg::Matrixd local;
    for (std::uint32_t i = 0; i < program.joints[joint].stepCount; ++i) {
        const PoseStep& step = program.steps[program.joints[joint].firstStep + i];
        osg::Vec3d axis;
        axis[step.axis] = 1.0;
        const double value =
            step.column < table.columns
                ? static_cast<double>(table.values[row * table.columns + step.column]) * step.factor
                : 0.0;
        switch (step.kind) {
            case PoseStep::Kind::Translate:
                local.preMult(osg::Matrixd::translate(step.vector));
                break;
            case PoseStep::Kind::Rotate:
                local.preMult(osg::Matrixd::rotate(step.rotation));
                break;
            case PoseStep::Kind::Shift:
                local.preMult(osg::Matrixd::translate(axis * value));
                break;
            case PoseStep::Kind::Turn:
                local.preMult(osg::Matrixd::rotate(osg::DegreesToRadians(value), axis));
                break;
        }
    }
    return local;
}

MotionTable tableOf(std::size_t columns, double frameTime, std::vector<float> values)
{
    MotionTable table;
    table.columns = columns;
    table.frames = values.size() / columns;
    table.frameTime = frameTime;
    table.values = std::move(values);
    return table;
}

MotionTable scatteredTable(std::size_t columns, std::size_t frames, float range)
{
    std::minstd_rand generator(20);
    std::uniform_real_distribution<float> scatter(-range, range);
    std::vector<float> values(columns * frames);
    std::generate(values.begin(), values.end(), [&] { return scatter(generator); });
    return tableOf(columns, 0.01, std::move(values));
}

void buildArm(TestActor& actor)
{
    actor.addJoint("7#Hips", -1,
                   {shift(0, 0), shift(2, 1), shift(1, 2, -1.0f), turn(1, 3, -1.0f), turn(0, 4), turn(2, 5)});
    actor.addJoint("7#Spine", 0, {translate({0, 0, 20}), turn(1, 6, -1.0f), turn(0, 7), turn(2, 8)});
    actor.addJoint("7#Head", 1, {translate({1, 2, 30}), turn(0, 9), turn(1, 10, -1.0f), turn(2, 11)});
}

double largestDifference(const osg::Matrixd& a, const osg::Matrixd& b)
{
    double largest = 0.0;
    for (int i = 0; i < 16; ++i) {
        largest = std::max(largest, std::fabs(a.ptr()[i] - b.ptr()[i]));
    }
    return largest;
}

}  // namespace KivAnimationTest
