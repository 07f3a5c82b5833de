#include "host/KivReader/skeletonbuilder.h"

#include <utility>
#include <vector>

#include "KivAnimation/bone.h"
#include "KivAnimation/skeleton.h"
#include "KivAnimation/updatebone.h"

namespace KivReader {

namespace {

using KivAnimation::Bone;
using KivAnimation::PoseProgram;
using KivAnimation::UpdateBone;

/// At rest; below `parent`, or below nothing where that is null.
osg::ref_ptr<Bone> makeBone(const MotionFigure::Joint& joint, const std::string& prefix, Bone* parent)
{
    std::string name;
    name.reserve(prefix.size() + joint.name.size());
    name.append(prefix).append(joint.name);
    const osg::ref_ptr<Bone> bone = parent ? new Bone(std::move(name), *parent) : new Bone(std::move(name));
    osg::Matrixd matrix = osg::Matrixd::translate(joint.offset);
    bone->setMatrix(matrix);
    matrix.setTrans(joint.offset + joint.fitShift);
    bone->setInitialMatrix(matrix);
    matrix.setTrans(parent ? parent->getMatrixInSkeletonSpace().getTrans() + joint.offset : joint.offset);
    bone->setMatrixInSkeletonSpace(matrix);
    bone->setDataVariance(osg::Object::DYNAMIC);
    return bone;
}

/// Children are added in the figure's order, so the root is its skeleton's first child.
std::vector<Bone*> makeBones(const MotionFigure& figure, const std::string& prefix, osg::Group& above)
{
    std::vector<Bone*> bones;
    bones.reserve(figure.joints.size());
    for (const MotionFigure::Joint& joint : figure.joints) {
        Bone* const parent = joint.parent < 0 ? nullptr : bones[static_cast<std::size_t>(joint.parent)];
        const osg::ref_ptr<Bone> bone = makeBone(joint, prefix, parent);
        if (!parent)
            above.addChild(bone);
        bones.push_back(bone.get());
    }
    return bones;
}

PoseProgram makeProgram(const MotionFigure& figure, const std::vector<Bone*>& bones)
{
    PoseProgram program;
    std::size_t steps = 0;
    for (const MotionFigure::Joint& joint : figure.joints)
        steps += joint.steps.size();
    program.steps.reserve(steps);
    program.joints.reserve(figure.joints.size());
    for (std::size_t i = 0; i < figure.joints.size(); ++i) {
        const MotionFigure::Joint& source = figure.joints[i];
        PoseProgram::Joint joint;
        joint.bone = bones[i];
        joint.parent = source.parent;
        joint.firstStep = static_cast<std::uint32_t>(program.steps.size());
        joint.stepCount = static_cast<std::uint32_t>(source.steps.size());
        program.steps.insert(program.steps.end(), source.steps.begin(), source.steps.end());
        program.joints.push_back(std::move(joint));
    }
    return program;
}

}  // namespace

BuiltSkeleton buildSkeleton(const MotionFigure& figure, KivAnimation::MotionTable table,
                            const std::string& qualifier)
{
    osg::ref_ptr<KivAnimation::Skeleton> skeleton = new KivAnimation::Skeleton;
    const auto bones = makeBones(figure, qualifier.empty() ? qualifier : qualifier + "#", *skeleton);
    PoseProgram program = makeProgram(figure, bones);
    if (!bones.empty()) {
        osg::ref_ptr<UpdateBone> update = new UpdateBone(bones.front()->getInitialMatrix());
        bones.front()->addUpdateCallback(update);
        program.joints.front().update = update;
    }
    BuiltSkeleton built;
    built.node = new osg::Group;
    built.node->addChild(skeleton);
    built.animation = new KivAnimation::Animation;
    built.animation->setMotion(std::move(table), std::move(program));
    return built;
}

}  // namespace KivReader
