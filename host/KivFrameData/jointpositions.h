#pragma once

#include <osg/Node>
#include <osg/Vec3d>
#include <osg/ref_ptr>

#include <string>
#include <vector>

#include "KivAnimation/bone.h"
#include "KivAnimation/skeleton.h"

namespace KivFrameData {

/// The joints of one skeleton, looked up once and read every frame.
class JointPositions
{
public:
    /// Takes the first skeleton below a node; none leaves it empty.
    explicit JointPositions(osg::Node& root);

    bool empty() const { return m_bones.empty(); }

    /// Without qualifier, parents first.
    std::vector<std::string> names() const;

    /// Where the joints are now, in scene units, Y-up as the frame store has them. What was in the vector is
    /// replaced; its memory is kept.
    void read(std::vector<osg::Vec3d>& positions) const;

private:
    osg::ref_ptr<KivAnimation::Skeleton> m_spSkeleton;
    std::vector<osg::ref_ptr<KivAnimation::Bone>> m_bones;
};

}  // namespace KivFrameData
