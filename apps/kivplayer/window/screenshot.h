#pragma once

#include <osg/Image>

#include <string>
#include <vector>

#include "apps/kivplayer/output/supersampler.h"

namespace KivPlayer {

/// A picture of the scene that is being made over several frames, and the file that it goes to.
class Screenshot
{
public:
    /// @param side frames in each direction.
    void begin(int side) { m_sampler.begin(side); }
    int side() const { return m_sampler.side(); }
    bool isBusy() const { return m_sampler.isBusy(); }
    /// How far the camera of the next frame is moved aside, pixels.
    osg::Vec2d shift() const { return m_sampler.offset(); }

    struct Written
    {
        std::string file;  ///< empty: the picture is not complete
        std::string problem;
    };
    /// Takes the next frame, and writes the picture with the last one.
    Written take(const osg::Image& frame);

    /// The files that were written.
    const std::vector<std::string>& files() const { return m_files; }

private:
    Supersampler m_sampler;
    std::vector<std::string> m_files;
};

}  // namespace KivPlayer
