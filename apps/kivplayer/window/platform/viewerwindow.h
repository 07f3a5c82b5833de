#pragma once

#include <osg/Scissor>
#include <osg/ref_ptr>
#include <osgGA/CameraManipulator>
#include <osgViewer/CompositeViewer>

namespace KivPlayer {

/// A window of the desktop with one view in it. Everything on the thread that draws.
class ViewerWindow
{
public:
    /// Opens it.
    /// @throws std::runtime_error where no window can be opened.
    ViewerWindow(osg::Node* scene, osgGA::CameraManipulator* manipulator);
    ~ViewerWindow();
    ViewerWindow(const ViewerWindow&) = delete;
    ViewerWindow& operator=(const ViewerWindow&) = delete;

    osgViewer::CompositeViewer& viewer() const { return *m_spViewer; }
    osgViewer::View& view() const { return *m_spView; }
    osg::Camera& camera() const { return *m_spView->getCamera(); }
    osg::GraphicsContext& context() const { return *camera().getGraphicsContext(); }
    int width() const { return static_cast<int>(camera().getViewport()->width()); }
    int height() const { return static_cast<int>(camera().getViewport()->height()); }

    /// Whether the processor draws by itself, for want of a graphics card.
    bool drawsInSoftware() const { return m_software; }

    /// Draws the scene only there, pixels from the bottom left corner.
    void drawOnly(int left, int bottom, int width, int height);

private:
    osg::ref_ptr<osgViewer::CompositeViewer> m_spViewer;
    osg::ref_ptr<osgViewer::View> m_spView;
    osg::ref_ptr<osg::Scissor> m_spScissor;
    bool m_software = false;
};

}  // namespace KivPlayer
