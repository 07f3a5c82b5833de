#pragma once

#include <osg/Image>
#include <osg/ref_ptr>
#include <osgViewer/CompositeViewer>

#include <memory>
#include <string>

namespace KivPlayer {

class EglContext;

/// Renders frames into images without a window system: an EGL context that belongs to no display, and a
/// composite viewer with one view that is embedded in it.
///
/// Smoothing is done by rendering at a whole multiple of the size and averaging in linear light, which gives
/// the same picture on every driver. One thread makes it, draws with it and destroys it.
class Offscreen
{
public:
    /// @param multiple samples per pixel in each direction, at least 1; lowered where the driver's largest
    /// surface asks for it.
    /// @throws std::runtime_error where no context can be had.
    Offscreen(int width, int height, int multiple);
    ~Offscreen();
    Offscreen(const Offscreen&) = delete;
    Offscreen& operator=(const Offscreen&) = delete;

    osgViewer::CompositeViewer& viewer() { return *m_spViewer; }
    osgViewer::View& view() { return *m_spView; }
    int width() const { return m_width; }
    int height() const { return m_height; }

    /// Runs one whole frame at a simulation time.
    /// @return the picture: RGB, a byte each, bottom row first.
    osg::ref_ptr<osg::Image> frame(double simulationTime);

private:
    int m_width;
    int m_height;
    int m_multiple;
    std::unique_ptr<EglContext> m_spContext;
    osg::ref_ptr<osgViewer::CompositeViewer> m_spViewer;
    osg::ref_ptr<osgViewer::View> m_spView;
    osg::ref_ptr<osg::Image> m_spSamples;
};

}  // namespace KivPlayer
