#include "tools/makemotion/pose.h"

namespace KivMotion {

Pose::Pose(const Rig& rig) : m_rig(&rig), m_rotations(rig.joints().size()), m_positions(rig.joints().size())
{
    for (std::size_t i = 0; i < m_positions.size(); ++i)
        m_positions[i] = rig.joints()[i].offset;
}

void Pose::setWorldRotation(int joint, const osg::Quat& world)
{
    const int parent = parentOf(joint);
    setRotation(joint, parent < 0 ? world : world * worldRotation(parent).inverse());
}

osg::Quat Pose::worldRotation(int joint) const
{
    osg::Quat world;
    for (int at = joint; at >= 0; at = parentOf(at))
        world = world * rotation(at);
    return world;
}

osg::Vec3d Pose::worldPosition(int joint) const
{
    osg::Vec3d world;
    for (int at = joint; at >= 0; at = parentOf(at)) {
        const int parent = parentOf(at);
        world += position(at);
        if (parent >= 0)
            world = rotation(parent) * world;
    }
    return world;
}

}  // namespace KivMotion
