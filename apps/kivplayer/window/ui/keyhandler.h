#pragma once

#include <osgGA/GUIEventHandler>

#include "apps/kivplayer/window/state/requests.h"

namespace KivPlayer {

/// Turns keys that nobody else wanted, and the closing of the window, into requests; they are done between
/// frames, where commands get through the gate.
class KeyHandler : public osgGA::GUIEventHandler
{
public:
    /// @param requests must outlive it.
    explicit KeyHandler(Requests& requests) : m_requests(requests) {}

    bool handle(const osgGA::GUIEventAdapter& event, osgGA::GUIActionAdapter&, osg::Object*,
                osg::NodeVisitor*) override;

private:
    Requests& m_requests;
};

}  // namespace KivPlayer
