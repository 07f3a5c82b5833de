#pragma once

#include <osg/Image>

#include <string>
#include <vector>

#include "apps/kivplayer/support/childprocess.h"
#include "apps/kivplayer/support/wholefile.h"

namespace KivPlayer {

/// What a video's name asks for by its ending: .mp4, .mkv, .webm or .gif.
enum class VideoFormat
{
    None,
    Mp4,
    Matroska,
    WebM,
    Gif
};

VideoFormat videoFormatOf(const std::string& file);
/// ".mp4" of "WALK.Mp4"; empty where there is none.
std::string lowerCaseEnding(const std::string& file);

/// Only a GIF takes odd sizes: the others keep colour for squares of 2 x 2 pixels.
constexpr bool needsEvenSize(VideoFormat format)
{
    return format != VideoFormat::Gif;
}

/// A video that an ffmpeg child makes of pictures. The same pictures give the same bytes with the same
/// ffmpeg: no dates, no names of programs, one thread. The file appears under its name once it is complete
/// and has been read to its end.
class VideoFile
{
public:
    VideoFile(const std::string& file, int width, int height, double fps);

    /// Each answers with what went wrong, empty on success; after the first problem there is no video.
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
    WholeFile m_file;
    ChildProcess m_encoder;
    std::vector<unsigned char> m_rows;
    unsigned long long m_pictures = 0;
};

}  // namespace KivPlayer
