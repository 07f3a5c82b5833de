#include "apps/kivplayer/output/offscreen.h"

#include <osg/Camera>
#include <osgViewer/GraphicsWindow>

#include <algorithm>

#include "apps/kivplayer/output/eglcontext.h"
#include "apps/kivplayer/output/supersampler.h"

namespace KivPlayer {

namespace {

/// Reads what has been drawn while the context is still current.
class ReadBack : public osg::Camera::DrawCallback
{
public:
    explicit ReadBack(osg::Image* image) : m_spImage(image) {}

    void operator()(osg::RenderInfo&) const override
    {
        glReadBuffer(GL_BACK);
        m_spImage->readPixels(0, 0, m_spImage->s(), m_spImage->t(), GL_RGB, GL_UNSIGNED_BYTE);
    }

private:
    osg::ref_ptr<osg::Image> m_spImage;
};

}  // namespace

Offscreen::Offscreen(int width, int height, int multiple)
    : m_width(width), m_height(height), m_multiple(std::max(1, multiple))
{
    const int largest = EglContext::largestSide();
    while (m_multiple > 1 && largest > 0 && std::max(width, height) > largest / m_multiple)
        --m_multiple;
    const int wide = m_width * m_multiple;
    const int high = m_height * m_multiple;
    m_spContext = std::make_unique<EglContext>(wide, high);

    m_spSamples = new osg::Image;
    m_spSamples->allocateImage(wide, high, 1, GL_RGB, GL_UNSIGNED_BYTE, 1);
    m_spViewer = new osgViewer::CompositeViewer;
    m_spViewer->setThreadingModel(osgViewer::ViewerBase::SingleThreaded);
    m_spViewer->setKeyEventSetsDone(0);
    m_spView = new osgViewer::View;
    osg::Camera* camera = m_spView->getCamera();
    camera->setGraphicsContext(new osgViewer::GraphicsWindowEmbedded(0, 0, wide, high));
    camera->setViewport(0, 0, wide, high);
    camera->setProjectionMatrixAsPerspective(30.0, static_cast<double>(width) / height, 1.0, 10000.0);
    camera->setFinalDrawCallback(new ReadBack(m_spSamples));
    m_spViewer->addView(m_spView);
}

Offscreen::~Offscreen()
{
    // OpenGL objects go while their context is still current.
    if (osg::Node* scene = m_spView->getSceneData())
        scene->releaseGLObjects(m_spView->getCamera()->getGraphicsContext()->getState());
    m_spView->setSceneData(nullptr);
    m_spViewer->setDone(true);
    m_spView = nullptr;
    m_spViewer = nullptr;
}

osg::ref_ptr<osg::Image> Offscreen::frame(double simulationTime)
{
    if (!m_spViewer->isRealized())
        m_spViewer->realize();
    m_spViewer->frame(simulationTime);
    return meanOfSquares(*m_spSamples, m_multiple);
}

}  // namespace KivPlayer
