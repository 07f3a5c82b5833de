#include "benchmarks/support/animatedbones.h"

#include <osg/MatrixTransform>
#include <osgAnimation/BasicAnimationManager>
#include <osgAnimation/Bone>
#include <osgAnimation/Skeleton>
#include <osgAnimation/StackedQuaternionElement>
#include <osgAnimation/StackedTranslateElement>
#include <osgAnimation/UpdateBone>

namespace KivBenchmark {

namespace {

osg::Quat rotationOf(const float* angles)
{
    const osg::Quat z(osg::DegreesToRadians(angles[0]), osg::Z_AXIS);
    const osg::Quat x(osg::DegreesToRadians(angles[1]), osg::X_AXIS);
    const osg::Quat y(osg::DegreesToRadians(angles[2]), osg::Y_AXIS);
    return y * x * z;  // the first factor acts first
}

class MotionChannels
{
public:
    MotionChannels(const MinimalMotion& motion, osgAnimation::Animation& animation)
        : m_motion(motion), m_animation(animation)
    {}

    void addRotation(const std::string& bone, std::size_t column)
    {
        osg::ref_ptr<osgAnimation::QuatSphericalLinearChannel> channel =
            new osgAnimation::QuatSphericalLinearChannel;
        auto* keys = channel->getOrCreateSampler()->getOrCreateKeyframeContainer();
        for (std::size_t row = 0; row < m_motion.frames; ++row)
            keys->push_back(osgAnimation::QuatKeyframe(timeOf(row), rotationOf(valueAt(row, column))));
        add(*channel, bone, "quaternion");
    }

    void addPosition(const std::string& bone, std::size_t column)
    {
        osg::ref_ptr<osgAnimation::Vec3LinearChannel> channel = new osgAnimation::Vec3LinearChannel;
        auto* keys = channel->getOrCreateSampler()->getOrCreateKeyframeContainer();
        for (std::size_t row = 0; row < m_motion.frames; ++row) {
            const float* value = valueAt(row, column);
            keys->push_back(osgAnimation::Vec3Keyframe(timeOf(row), osg::Vec3(value[0], value[1], value[2])));
        }
        add(*channel, bone, "position");
    }

private:
    double timeOf(std::size_t row) const { return static_cast<double>(row) * m_motion.frameTime; }
    const float* valueAt(std::size_t row, std::size_t column) const
    {
        return m_motion.values.data() + row * m_motion.columns + column;
    }
    void add(osgAnimation::Channel& channel, const std::string& bone, const char* name)
    {
        channel.setTargetName(bone);
        channel.setName(name);
        m_animation.addChannel(&channel);
    }

    const MinimalMotion& m_motion;
    osgAnimation::Animation& m_animation;
};

osg::ref_ptr<osgAnimation::Bone> makeBone(const MinimalMotion::Joint& joint)
{
    const osg::Vec3d offset(joint.offset[0], joint.offset[1], joint.offset[2]);
    osg::ref_ptr<osgAnimation::Bone> bone = new osgAnimation::Bone(joint.name);
    bone->setMatrix(osg::Matrixd::translate(offset));
    osg::ref_ptr<osgAnimation::UpdateBone> update = new osgAnimation::UpdateBone(joint.name);
    update->getStackedTransforms().push_back(new osgAnimation::StackedTranslateElement("position", offset));
    if (!joint.channels.empty())
        update->getStackedTransforms().push_back(new osgAnimation::StackedQuaternionElement("quaternion"));
    bone->setUpdateCallback(update);
    return bone;
}

}  // namespace

osg::ref_ptr<osg::Group> animatedBones(const MinimalMotion& motion)
{
    osg::ref_ptr<osgAnimation::Skeleton> skeleton = new osgAnimation::Skeleton;
    skeleton->setDefaultUpdateCallback();
    osg::ref_ptr<osgAnimation::Animation> animation = new osgAnimation::Animation;
    animation->setPlayMode(osgAnimation::Animation::LOOP);
    MotionChannels channels(motion, *animation);

    std::vector<osg::Group*> bones;
    std::size_t column = 0;
    for (const MinimalMotion::Joint& joint : motion.joints) {
        const osg::ref_ptr<osgAnimation::Bone> bone = makeBone(joint);
        osg::Group* parent = skeleton.get();
        if (joint.parent >= 0)
            parent = bones[static_cast<std::size_t>(joint.parent)];
        parent->addChild(bone);
        bones.push_back(bone);
        if (joint.channels.size() == 6)
            channels.addPosition(joint.name, column);
        column += joint.channels.size();
        if (!joint.channels.empty())
            channels.addRotation(joint.name, column - 3);
    }

    osg::ref_ptr<osg::MatrixTransform> root =
        new osg::MatrixTransform(osg::Matrixd::rotate(osg::PI_2, osg::Vec3d(1, 0, 0)));
    root->addChild(skeleton);
    osg::ref_ptr<osgAnimation::BasicAnimationManager> manager = new osgAnimation::BasicAnimationManager;
    manager->registerAnimation(animation);
    manager->buildTargetReference();
    root->setUpdateCallback(manager);
    manager->playAnimation(animation);
    return root;
}

}  // namespace KivBenchmark
