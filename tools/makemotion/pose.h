// One frame of a figure: how every joint is turned, and where the joints that move are.
#pragma once

#include <osg/Quat>
#include <osg/Vec3d>
#include <vector>

#include "tools/makemotion/rig.h"

namespace KivMotion {

/// Starts as the rest pose. Refers to the rig, which must outlive it.
class Pose
{
public:
    explicit Pose(const Rig& rig);

    const osg::Quat& rotation(int joint) const { return m_rotations[static_cast<std::size_t>(joint)]; }
    const osg::Vec3d& position(int joint) const { return m_positions[static_cast<std::size_t>(joint)]; }
    void setRotation(int joint, const osg::Quat& local)
    {
        m_rotations[static_cast<std::size_t>(joint)] = local;
    }
    void setPosition(int joint, const osg::Vec3d& local)
    {
        m_positions[static_cast<std::size_t>(joint)] = local;
    }
    /// Turns a joint so that it stands in the world as given; its ancestors must be set already.
    void setWorldRotation(int joint, const osg::Quat& world);

    osg::Quat worldRotation(int joint) const;
    osg::Vec3d worldPosition(int joint) const;

private:
    int parentOf(int joint) const { return m_rig->joints()[static_cast<std::size_t>(joint)].parent; }

    const Rig* m_rig;
    std::vector<osg::Quat> m_rotations;
    std::vector<osg::Vec3d> m_positions;
};

/// A motion: poses of one rig at a fixed rate.
struct Clip
{
    const Rig* rig = nullptr;
    double frameTime = 0;  ///< seconds
    std::vector<Pose> poses;
};

/// All samples are made at this rate.
constexpr double kFramesPerSecond = 60.0;

}  // namespace KivMotion
