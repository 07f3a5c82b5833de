#include "apps/kivplayer/output/supersampler.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

namespace KivPlayer {

namespace {

/// Between bytes as displays take them (sRGB) and linear light in 16 bits. Every byte survives the way there
/// and back.
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

const LightTables& lightTables()
{
    static const LightTables tables;
    return tables;
}

}  // namespace

const std::uint32_t* LightMean::linearLight()
{
    return lightTables().linear.data();
}

void LightMean::reset()
{
    std::fill(m_sums.begin(), m_sums.end(), 0);
}

void LightMean::write(unsigned char* bytes, unsigned samples) const
{
    const std::vector<std::uint8_t>& encoded = lightTables().encoded;
    for (std::size_t i = 0; i < m_sums.size(); ++i)
        bytes[i] = encoded[(m_sums[i] + samples / 2) / samples];
}

int defaultSupersampling(int width, int height)
{
    return static_cast<long long>(width) * height <= 1024LL * 768LL ? 3 : 2;
}

osg::ref_ptr<osg::Image> meanOfSquares(const osg::Image& samples, int side)
{
    if (side < 1 || samples.s() % side || samples.t() % side)
        throw std::invalid_argument("the samples make no whole pixels");
    const int width = samples.s() / side;
    const int height = samples.t() / side;
    osg::ref_ptr<osg::Image> picture = new osg::Image;
    picture->allocateImage(width, height, 1, GL_RGB, GL_UNSIGNED_BYTE, 1);
    LightMean mean(static_cast<std::size_t>(width) * 3);
    for (int row = 0; row < height; ++row) {
        mean.reset();
        for (int line = 0; line < side; ++line) {
            const unsigned char* in = samples.data(0, static_cast<unsigned>(row * side + line));
            for (std::size_t x = 0; x < mean.size(); x += 3)
                for (int sample = 0; sample < side; ++sample, in += 3)
                    for (std::size_t c = 0; c < 3; ++c)
                        mean.add(x + c, in[c]);
        }
        mean.write(picture->data(0, static_cast<unsigned>(row)), static_cast<unsigned>(side * side));
    }
    return picture;
}

void Supersampler::begin(int side)
{
    m_side = std::max(1, side);
    m_frames = 0;
    m_mean.reset();
}

osg::Vec2d Supersampler::offset() const
{
    const auto aside = [this](int step) { return (step + 0.5) / m_side - 0.5; };
    return {aside(m_frames % m_side), aside(m_frames / m_side)};
}

osg::ref_ptr<osg::Image> Supersampler::take(const osg::Image& frame)
{
    const std::size_t size = frame.getTotalSizeInBytes();
    if (m_mean.size() != size) {
        m_mean = LightMean(size);
        m_frames = 0;
    }
    for (std::size_t i = 0; i < size; ++i)
        m_mean.add(i, frame.data()[i]);
    if (++m_frames < m_side * m_side)
        return nullptr;
    osg::ref_ptr<osg::Image> picture = new osg::Image(frame, osg::CopyOp::DEEP_COPY_ALL);
    m_mean.write(picture->data(), static_cast<unsigned>(m_side * m_side));
    return picture;
}

}  // namespace KivPlayer
