#include "benchmarks/support/plainbones.h"

#include <vector>

#include "KivAnimation/bone.h"
#include "KivAnimation/skeleton.h"

namespace KivBenchmark {

osg::ref_ptr<osg::Group> plainBones(const MinimalMotion& motion)
{
    osg::ref_ptr<osg::Group> top = new KivAnimation::Skeleton;
    std::vector<KivAnimation::Bone*> bones;
    bones.reserve(motion.joints.size());
    for (const MinimalMotion::Joint& joint : motion.joints) {
        KivAnimation::Bone* bone = nullptr;
        if (joint.parent < 0)
            top->addChild(bone = new KivAnimation::Bone(joint.name));
        else
            bone = new KivAnimation::Bone(joint.name, *bones[static_cast<std::size_t>(joint.parent)]);
        const auto& [x, y, z] = joint.offset;
        bone->setMatrix(osg::Matrixd::translate(x, y, z));
        bones.push_back(bone);
    }
    return top;
}

}  // namespace KivBenchmark
