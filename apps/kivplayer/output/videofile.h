#pragma once

#include <osg/Image>

#include <string>
#include <vector>

#include "apps/kivplayer/options/fileformats.h"
#include "apps/kivplayer/support/atomicfile.h"
#include "apps/kivplayer/support/childprocess.h"

namespace KivPlayer {

/// Only a GIF takes odd sizes: the others keep colour for squares of 2 x 2 pixels.
constexpr bool needsEvenSize(FileFormat format)
{
    return format != FileFormat::Gif;
}

/// A video in the format that its file extension asks for, made of pictures by an ffmpeg child. The same
/// pictures give the same bytes with the same ffmpeg: no dates, no names of programs, one thread. The file
/// appears under its name once it is complete and has been read to its end.
class VideoFile
{
public:
    VideoFile(const std::string& file, int width, int height, double fps);

    /// Each returns what went wrong, empty on success; after the first problem there is no video.
    std::string open();
    /// @param picture RGB, a byte each, bottom row first, of the video's size.
    std::string add(const osg::Image& picture);
    std::string close();

private:
    std::vector<std::string> arguments() const;

    std::string m_name;
    int m_width;
    int m_height;
    double m_fps;
    AtomicFile m_file;
    ChildProcess m_encoder;
    std::vector<unsigned char> m_rows;
    unsigned long long m_pictures = 0;
};

}  // namespace KivPlayer
