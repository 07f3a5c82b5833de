#pragma once

#include <osg/Image>
#include <osg/Vec2d>
#include <osg/ref_ptr>

#include <cstdint>
#include <vector>

namespace KivPlayer {

/// Makes one smooth picture from several frames of the same moment, each seen from a place a part of a pixel
/// aside: the mean of them is what a frame of so many times the size has in its pixels.
class Supersampler
{
public:
    /// Frames in each direction.
    static constexpr int kSide = 3;

    void begin();
    bool isBusy() const { return m_frames < kSide * kSide; }

    /// Where the next frame is seen from, pixels to the right and upwards.
    osg::Vec2d offset() const;

    /// Takes the next frame.
    /// @return the picture once the last one is there, else null.
    osg::ref_ptr<osg::Image> take(const osg::Image& frame);

private:
    int m_frames = kSide * kSide;
    std::vector<std::uint32_t> m_sums;
};

}  // namespace KivPlayer
