#pragma once

#include <osg/Group>

namespace KivPlayer {

/// Draws what a body hides of its markers, faintly, over the body: centre of mass and contact points lie
/// inside it. Hangs beside the figures and has them as its child; of those it passes only the markers on, and
/// only to be drawn: updates and picks go the straight way alone.
class HiddenMarkers : public osg::Group
{
public:
    explicit HiddenMarkers(osg::Group* figures);

    void traverse(osg::NodeVisitor& visitor) override;

protected:
    ~HiddenMarkers() override = default;
};

}  // namespace KivPlayer
