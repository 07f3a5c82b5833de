#include "apps/kivplayer/window/ui/keyhandler.h"

#include "apps/kivplayer/window/state/keytable.h"

namespace KivPlayer {

bool KeyHandler::handle(const osgGA::GUIEventAdapter& event, osgGA::GUIActionAdapter&, osg::Object*,
                        osg::NodeVisitor*)
{
    using Event = osgGA::GUIEventAdapter;
    if (event.getEventType() == Event::CLOSE_WINDOW || event.getEventType() == Event::QUIT_APPLICATION) {
        m_requests.push_back(Action::Quit);
        return true;
    }
    if (event.getHandled() || event.getEventType() != Event::KEYDOWN)
        return false;
    const bool control = (event.getModKeyMask() & Event::MODKEY_CTRL) != 0;
    const KeyBinding* binding = bindingFor(event.getKey(), control);
    if (binding)
        m_requests.push_back(binding->request);
    return binding != nullptr;
}

}  // namespace KivPlayer
