#include "tools/makemotion/rig.h"

#include <stdexcept>

#include "tools/figure/restfigure.h"

namespace KivMotion {

namespace {

osg::Vec3d toVec(const KivFigure::Offset& offset)
{
    return {offset[0], offset[1], offset[2]};
}

}  // namespace

std::string sided(Side side, const std::string& part)
{
    return (side == Side::Left ? "Left" : "Right") + part;
}

Rig::Rig(bool withProps)
{
    const KivFigure::RestJoint& root = KivFigure::restJoints().front();
    m_rootHeight = root.offset[1];
    addBranch(root.name, -1, withProps);
}

void Rig::addBranch(const std::string& name, int parent, bool withProps)
{
    const int index = static_cast<int>(m_joints.size());
    RigJoint joint;
    joint.name = name;
    joint.parent = parent;
    // Positions of the root are absolute: with an offset of zero, readers that add and readers that replace
    // agree.
    joint.offset = parent < 0 ? osg::Vec3d() : toVec(KivFigure::findRestJoint(name)->offset);
    joint.moves = parent < 0;
    for (const KivFigure::RestEnd& end : KivFigure::restEnds())
        if (end.parent == name) {
            joint.isTip = true;
            joint.tip = toVec(end.offset);
        }
    m_joints.push_back(joint);
    for (const KivFigure::RestJoint& child : KivFigure::restJoints())
        if (child.parent == name)
            addBranch(child.name, index, withProps);
    if (!withProps)
        return;
    for (const KivFigure::RestJoint& props : KivFigure::propsJoints()) {
        if (props.parent != name)
            continue;
        RigJoint carried{props.name, index, toVec(props.offset), true, true, osg::Vec3d(0, -5, 0)};
        m_joints.push_back(carried);
    }
}

std::vector<int> Rig::childrenOf(int joint) const
{
    std::vector<int> children;
    for (std::size_t i = 0; i < m_joints.size(); ++i)
        if (m_joints[i].parent == joint)
            children.push_back(static_cast<int>(i));
    return children;
}

int Rig::find(const std::string& name) const
{
    for (std::size_t i = 0; i < m_joints.size(); ++i)
        if (m_joints[i].name == name)
            return static_cast<int>(i);
    throw std::invalid_argument("the rig has no joint '" + name + "'");
}

osg::Vec3d Rig::offsetOf(const std::string& name) const
{
    return m_joints[static_cast<std::size_t>(find(name))].offset;
}

}  // namespace KivMotion
