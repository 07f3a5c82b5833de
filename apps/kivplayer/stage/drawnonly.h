#pragma once

#include <osg/Group>
#include <osg/NodeVisitor>

namespace KivPlayer {

/// Lets only culling through to its children: what hangs elsewhere, too, is updated there, and what has left
/// its place is drawn and nothing else.
class DrawnOnly : public osg::Group
{
public:
    void traverse(osg::NodeVisitor& visitor) override
    {
        if (visitor.getVisitorType() == osg::NodeVisitor::CULL_VISITOR)
            osg::Group::traverse(visitor);
    }
};

}  // namespace KivPlayer
