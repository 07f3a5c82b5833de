#include "host/KivReader/figure/skeletonbuilder.h"

#include <utility>

#include "KivAnimation/bone.h"
#include "KivAnimation/skeleton.h"
#include "KivAnimation/updatebone.h"
#include "KivCharacterization/naming.h"

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
PoseProgram makeBones(MotionFigure figure, const std::string& prefix, osg::Group& above)
{
    PoseProgram program;
    program.steps = std::move(figure.steps);
    program.joints.reserve(figure.joints.size());
    for (const MotionFigure::Joint& source : figure.joints) {
        Bone* const parent =
            source.parent < 0 ? nullptr : program.joints[static_cast<std::size_t>(source.parent)].bone;
        const osg::ref_ptr<Bone> bone = makeBone(source, prefix, parent);
        if (!parent)
            above.addChild(bone);
        PoseProgram::Joint& joint = program.joints.emplace_back();
        joint.bone = bone;
        joint.parent = source.parent;
        joint.firstStep = source.firstStep;
        joint.stepCount = source.stepCount;
    }
    return program;
}

}  // namespace

BuiltSkeleton buildSkeleton(MotionFigure figure, KivAnimation::MotionTable table,
                            const std::string& qualifier)
{
    osg::ref_ptr<KivAnimation::Skeleton> skeleton = new KivAnimation::Skeleton;
    PoseProgram program =
        makeBones(std::move(figure),
                  qualifier.empty() ? qualifier : qualifier + KivCharacterization::kQualifierMark, *skeleton);
    if (!program.joints.empty()) {
        PoseProgram::Joint& root = program.joints.front();
        osg::ref_ptr<UpdateBone> update = new UpdateBone(root.bone->getInitialMatrix());
        root.bone->addUpdateCallback(update);
        root.update = update;
    }
    BuiltSkeleton built;
    built.node = new osg::Group;
    built.node->addChild(skeleton);
    built.animation = new KivAnimation::Animation;
    built.animation->setMotion(std::move(table), std::move(program));
    return built;
}

}  // namespace KivReader
