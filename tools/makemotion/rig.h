// The skeleton that motions are written for: the rest figure in the order of a motion file's columns.
#pragma once

#include <osg/Vec3d>
#include <string>
#include <vector>

namespace KivMotion {

enum class Side
{
    Left = 0,
    Right = 1
};

inline Side opposite(Side side)
{
    return side == Side::Left ? Side::Right : Side::Left;
}
inline std::size_t indexOf(Side side)
{
    return static_cast<std::size_t>(side);
}
/// +1 on the left, where X grows.
inline double signOf(Side side)
{
    return side == Side::Left ? 1.0 : -1.0;
}
std::string sided(Side side, const std::string& part);

struct RigJoint
{
    std::string name;
    int parent = -1;  ///< -1 for the root, else an index smaller than the joint's own
    osg::Vec3d offset;
    bool moves = false;  ///< has position channels
    bool isTip = false;
    osg::Vec3d tip;  ///< where the chain ends, relative to the joint
};

/// Joints depth first. Centimetres, Y-up.
class Rig
{
public:
    /// The rest figure, with its two props joints or without.
    explicit Rig(bool withProps);

    const std::vector<RigJoint>& joints() const { return m_joints; }
    std::vector<int> childrenOf(int joint) const;
    /// Throws std::invalid_argument for a name that is not there.
    int find(const std::string& name) const;
    osg::Vec3d offsetOf(const std::string& name) const;
    /// Height of the root over the ground at rest.
    double rootHeight() const { return m_rootHeight; }

private:
    void addBranch(const std::string& name, int parent, bool withProps);

    std::vector<RigJoint> m_joints;
    double m_rootHeight = 0;
};

}  // namespace KivMotion
