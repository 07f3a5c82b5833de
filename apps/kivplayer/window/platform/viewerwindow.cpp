#include "apps/kivplayer/window/platform/viewerwindow.h"

#include <osgViewer/GraphicsWindow>

#include <stdexcept>
#include <string>

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
    m_spViewer->addView(m_spView);
    m_spViewer->realize();
}

ViewerWindow::~ViewerWindow() = default;

void ViewerWindow::drawOnly(int left, int bottom, int width, int height)
{
    m_spScissor->setScissor(left, bottom, width, height);
}

}  // namespace KivPlayer
