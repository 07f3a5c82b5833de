#include "apps/kivplayer/window/supersampler.h"

namespace KivPlayer {

void Supersampler::begin()
{
    m_frames = 0;
    m_sums.clear();
}

osg::Vec2d Supersampler::offset() const
{
    const auto aside = [](int step) { return (step + 0.5) / kSide - 0.5; };
    return {aside(m_frames % kSide), aside(m_frames / kSide)};
}

osg::ref_ptr<osg::Image> Supersampler::take(const osg::Image& frame)
{
    const std::size_t size = frame.getTotalSizeInBytes();
    // A window that has changed its size begins anew.
    if (m_sums.size() != size) {
        m_sums.assign(size, 0);
        m_frames = 0;
    }
    const unsigned char* values = frame.data();
    for (std::size_t i = 0; i < size; ++i)
        m_sums[i] += values[i];
    if (++m_frames < kSide * kSide)
        return nullptr;
    osg::ref_ptr<osg::Image> picture = new osg::Image(frame, osg::CopyOp::DEEP_COPY_ALL);
    constexpr std::uint32_t kFrames = kSide * kSide;
    for (std::size_t i = 0; i < size; ++i)
        picture->data()[i] = static_cast<unsigned char>((m_sums[i] + kFrames / 2) / kFrames);
    return picture;
}

}  // namespace KivPlayer
