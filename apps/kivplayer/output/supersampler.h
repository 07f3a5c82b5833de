#pragma once

#include <osg/Image>
#include <osg/Vec2d>
#include <osg/ref_ptr>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace KivPlayer {

/// The mean of samples in linear light, which is how an eye sees small things from afar: of black and white
/// in equal parts 188 of 255. A sum for every byte of a picture or of a row of it; as displays take them.
class LightMean
{
public:
    explicit LightMean(std::size_t bytes = 0) : m_sums(bytes) {}

    std::size_t size() const { return m_sums.size(); }
    void reset();
    void add(std::size_t byte, unsigned char sample) { m_sums[byte] += m_pLinear[sample]; }
    /// @param samples that every byte has had.
    void write(unsigned char* bytes, unsigned samples) const;

private:
    static const std::uint32_t* linearLight();

    const std::uint32_t* m_pLinear = linearLight();
    std::vector<std::uint32_t> m_sums;
};

/// Samples per pixel in each direction where none are asked for: smaller pictures can afford more.
int defaultSupersampling(int width, int height);

/// The mean of squares of side × side samples; the sides of the picture must divide.
osg::ref_ptr<osg::Image> meanOfSquares(const osg::Image& samples, int side);

/// The same picture from several frames of its own size, each seen a part of a pixel aside: for a window,
/// which cannot be drawn larger than it is.
class Supersampler
{
public:
    /// @param side frames in each direction.
    void begin(int side);
    bool isBusy() const { return m_frames < m_side * m_side; }
    int side() const { return m_side; }

    /// Where the next frame is seen from, pixels to the right and upwards.
    osg::Vec2d offset() const;

    /// Takes the next frame. One of another size starts over.
    /// @return the picture once the last one is there, else null.
    osg::ref_ptr<osg::Image> take(const osg::Image& frame);

private:
    int m_side = 0;
    int m_frames = 0;
    LightMean m_mean;
};

}  // namespace KivPlayer
