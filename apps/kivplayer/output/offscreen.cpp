#include "apps/kivplayer/output/offscreen.h"

#include <osg/Camera>
#include <osgViewer/GraphicsWindow>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "apps/kivplayer/output/eglcontext.h"

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

/// Between bytes as displays take them and linear light in 16 bits. Every byte survives the way there and
/// back.
struct LightTables
{
    std::array<std::uint32_t, 256> linear{};
    std::vector<std::uint8_t> encoded = std::vector<std::uint8_t>(65536);

    LightTables()
    {
        for (std::size_t i = 0; i < linear.size(); ++i) {
            const double v = static_cast<double>(i) / 255.0;
            linear[i] = static_cast<std::uint32_t>(std::lround(65535.0 * toLinear(v)));
        }
        for (std::size_t i = 0; i < encoded.size(); ++i) {
            const double v = static_cast<double>(i) / 65535.0;
            encoded[i] = static_cast<std::uint8_t>(std::lround(255.0 * toDisplay(v)));
        }
    }

    static double toLinear(double v) { return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); }
    static double toDisplay(double v)
    {
        return v <= 0.0031308 ? v * 12.92 : 1.055 * std::pow(v, 1.0 / 2.4) - 0.055;
    }
};

}  // namespace

int Offscreen::defaultSupersampling(int width, int height)
{
    return static_cast<long long>(width) * height <= 1024LL * 768LL ? 3 : 2;
}

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
    return boxFilter(*m_spSamples, m_multiple);
}

osg::ref_ptr<osg::Image> boxFilter(const osg::Image& samples, int multiple)
{
    static const LightTables tables;
    if (multiple < 1 || samples.s() % multiple || samples.t() % multiple)
        throw std::invalid_argument("the multiple does not divide the picture");
    const int width = samples.s() / multiple;
    const int height = samples.t() / multiple;
    const auto area = static_cast<std::uint32_t>(multiple * multiple);
    osg::ref_ptr<osg::Image> picture = new osg::Image;
    picture->allocateImage(width, height, 1, GL_RGB, GL_UNSIGNED_BYTE, 1);
    std::vector<std::uint32_t> sums(static_cast<std::size_t>(width) * 3);
    for (int row = 0; row < height; ++row) {
        std::fill(sums.begin(), sums.end(), area / 2);
        for (int line = 0; line < multiple; ++line) {
            const unsigned char* in = samples.data(0, static_cast<unsigned>(row * multiple + line));
            for (std::size_t x = 0; x < sums.size(); x += 3)
                for (int sample = 0; sample < multiple; ++sample, in += 3)
                    for (std::size_t c = 0; c < 3; ++c)
                        sums[x + c] += tables.linear[in[c]];
        }
        unsigned char* out = picture->data(0, static_cast<unsigned>(row));
        for (std::size_t i = 0; i < sums.size(); ++i)
            out[i] = tables.encoded[sums[i] / area];
    }
    return picture;
}

}  // namespace KivPlayer
