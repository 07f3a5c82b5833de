#include "apps/kivplayer/window/viewerwindow.h"

#include <osgViewer/GraphicsWindow>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace KivPlayer {

namespace {

constexpr int kInitialWidth = 1280;
constexpr int kInitialHeight = 800;
constexpr unsigned kSamples = 4;

/// Asked of the smallest context there is: smooth edges would cost a processor that draws by itself most of
/// its frames, and a window cannot be given or denied them later.
bool processorDraws()
{
    osg::ref_ptr<osg::GraphicsContext::Traits> traits = new osg::GraphicsContext::Traits;
    traits->readDISPLAY();
    traits->width = 1;
    traits->height = 1;
    traits->pbuffer = true;
    const osg::ref_ptr<osg::GraphicsContext> context =
        osg::GraphicsContext::createGraphicsContext(traits.get());
    if (!context || !context->realize() || !context->makeCurrent())
        return true;
    const GLubyte* renderer = glGetString(GL_RENDERER);
    const std::string name = renderer ? reinterpret_cast<const char*>(renderer) : "";
    context->releaseContext();
    context->close();
    return name.find("llvmpipe") != std::string::npos || name.find("softpipe") != std::string::npos;
}

osg::ref_ptr<osg::GraphicsContext> openContext(unsigned samples)
{
    osg::ref_ptr<osg::GraphicsContext::Traits> traits = new osg::GraphicsContext::Traits;
    traits->readDISPLAY();
    traits->setUndefinedScreenDetailsToDefaultScreen();
    traits->x = 60;
    traits->y = 40;
    traits->width = kInitialWidth;
    traits->height = kInitialHeight;
    traits->windowName = "kivplayer";
    traits->windowDecoration = true;
    traits->doubleBuffer = true;
    traits->samples = samples;
    osg::ref_ptr<osg::GraphicsContext> context = osg::GraphicsContext::createGraphicsContext(traits.get());
    if (!context)
        throw std::runtime_error("no window can be opened on this display");
    return context;
}

/// Notes what keys ask for; it is done between frames, where commands get through the gate.
class KeyHandler : public osgGA::GUIEventHandler
{
public:
    explicit KeyHandler(std::vector<Action>& asked) : m_asked(asked) {}

    bool handle(const osgGA::GUIEventAdapter& ea, osgGA::GUIActionAdapter&, osg::Object*,
                osg::NodeVisitor*) override
    {
        if (ea.getEventType() == osgGA::GUIEventAdapter::CLOSE_WINDOW ||
            ea.getEventType() == osgGA::GUIEventAdapter::QUIT_APPLICATION) {
            m_asked.push_back(Action::Quit);
            return true;
        }
        if (ea.getHandled() || ea.getEventType() != osgGA::GUIEventAdapter::KEYDOWN)
            return false;
        const bool control = (ea.getModKeyMask() & osgGA::GUIEventAdapter::MODKEY_CTRL) != 0;
        const KeyBinding* binding = bindingFor(ea.getKey(), control);
        if (binding)
            m_asked.push_back(binding->action);
        return binding != nullptr;
    }

private:
    std::vector<Action>& m_asked;
};

}  // namespace

ViewerWindow::ViewerWindow(osg::Node* scene, osgGA::CameraManipulator* manipulator)
    : m_spViewer(new osgViewer::CompositeViewer),
      m_spView(new osgViewer::View),
      m_spScissor(new osg::Scissor(0, 0, kInitialWidth, kInitialHeight)),
      m_software(processorDraws())
{
    m_spViewer->setThreadingModel(osgViewer::ViewerBase::SingleThreaded);
    m_spViewer->setKeyEventSetsDone(0);
    m_spViewer->setQuitEventSetsDone(false);
    osg::Camera& camera = *m_spView->getCamera();
    camera.setGraphicsContext(openContext(m_software ? 0 : kSamples));
    camera.setViewport(0, 0, kInitialWidth, kInitialHeight);
    camera.setProjectionResizePolicy(osg::Camera::FIXED);
    camera.getOrCreateStateSet()->setAttributeAndModes(m_spScissor);
    m_spView->setSceneData(scene);
    m_spView->setCameraManipulator(manipulator, false);
    m_spView->addEventHandler(new KeyHandler(m_asked));
    m_spViewer->addView(m_spView);
    m_spViewer->realize();
}

ViewerWindow::~ViewerWindow() = default;

void ViewerWindow::drawOnly(const FreeArea& area)
{
    m_spScissor->setScissor(area.left, area.bottom, std::max(1, area.windowWidth - area.left),
                            std::max(1, area.windowHeight - area.bottom));
}

std::vector<Action> ViewerWindow::takeAsked()
{
    return std::exchange(m_asked, {});
}

}  // namespace KivPlayer
