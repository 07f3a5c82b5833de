#include "apps/kivplayer/output/videofile.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "apps/kivplayer/support/numbers.h"

namespace KivPlayer {

namespace {

const char* const kEncoder = "ffmpeg";
const char* const kReader = "ffprobe";
// The colours of high-definition video, said in the file: without it players guess.
const std::vector<std::string> kVideoColours{
    "-vf",
    "scale=out_color_matrix=bt709:out_range=tv:flags=bicubic+accurate_rnd+full_chroma_int+bitexact",
    "-pix_fmt",
    "yuv420p",
    "-colorspace",
    "bt709",
    "-color_primaries",
    "bt709",
    "-color_trc",
    "bt709",
    "-color_range",
    "tv"};
const std::vector<std::string> kH264{"-c:v", "libx264", "-preset", "medium", "-crf", "18"};
const std::vector<std::string> kVp9{"-c:v",      "libvpx-vp9", "-crf",      "24", "-b:v",    "0",
                                    "-deadline", "good",       "-cpu-used", "4",  "-row-mt", "0"};
const std::vector<std::string> kPalette{
    "-filter_complex",
    "split[a][b];[a]palettegen=stats_mode=full[p];[b][p]paletteuse=dither=bayer:bayer_scale=3"};

std::vector<std::string> encoding(FileFormat format)
{
    if (format == FileFormat::Gif) {
        std::vector<std::string> words = kPalette;
        words.insert(words.end(), {"-f", "gif"});
        return words;
    }
    std::vector<std::string> words = format == FileFormat::WebM ? kVp9 : kH264;
    words.insert(words.end(), kVideoColours.begin(), kVideoColours.end());
    if (format == FileFormat::Mp4)
        words.insert(words.end(), {"-movflags", "+faststart", "-f", "mp4"});
    else
        words.insert(words.end(), {"-f", format == FileFormat::WebM ? "webm" : "matroska"});
    return words;
}

std::string picturesInstead(const std::string& video)
{
    const std::filesystem::path path(video);
    return "--output '" + (path.parent_path() / path.stem() / "{frame:04}.png").string() + "'";
}

/// Reads a finished video to its end and counts its pictures. Without the program that does it, which comes
/// with the encoder, nothing is known and nothing is said.
std::string faultOf(const std::string& video, unsigned long long pictures)
{
    ChildProcess reader;
    const std::vector<std::string> arguments{"-v",
                                             "error",
                                             "-select_streams",
                                             "v:0",
                                             "-count_packets",
                                             "-show_entries",
                                             "stream=nb_read_packets",
                                             "-of",
                                             "default=noprint_wrappers=1:nokey=1",
                                             "file:" + video};
    if (reader.start(kReader, arguments, ChildProcess::Output::Kept) != 0)
        return std::string();
    const std::string end = reader.finish();
    if (!end.empty() || !reader.message().empty())
        return "cannot be read again after it was written: " + (end.empty() ? reader.message() : end);
    const unsigned long long found = std::strtoull(reader.output().c_str(), nullptr, 10);
    if (found == pictures)
        return std::string();
    return "was cut short: it has " + std::to_string(found) + " of " + std::to_string(pictures) +
           " pictures; is the disk full?";
}

}  // namespace

VideoFile::VideoFile(const std::string& file, int width, int height, double fps)
    : m_name(file), m_width(width), m_height(height), m_fps(fps), m_file(file)
{}

std::vector<std::string> VideoFile::arguments() const
{
    std::vector<std::string> words{"-nostdin",
                                   "-hide_banner",
                                   "-loglevel",
                                   "error",
                                   "-y",
                                   "-f",
                                   "rawvideo",
                                   "-pixel_format",
                                   "rgb24",
                                   "-video_size",
                                   std::to_string(m_width) + "x" + std::to_string(m_height),
                                   "-framerate",
                                   numberText(m_fps),
                                   "-i",
                                   "pipe:0",
                                   "-an"};
    const std::vector<std::string> own = encoding(formatOf(m_name));
    words.insert(words.end(), own.begin(), own.end());
    for (const char* word : {"-threads", "1", "-filter_threads", "1", "-filter_complex_threads", "1",
                             "-flags:v", "+bitexact", "-fflags", "+bitexact", "-map_metadata", "-1"})
        words.emplace_back(word);
    words.push_back("file:" + m_file.temporary());
    return words;
}

std::string VideoFile::open()
{
    const std::string problem = m_file.begin();
    if (!problem.empty())
        return problem;
    const int refused = m_encoder.start(kEncoder, arguments());
    if (refused == ENOENT)
        return "there is no ffmpeg, which makes the videos: install it (Debian: apt-get install ffmpeg), or "
               "write "
               "pictures: " +
               picturesInstead(m_name);
    return refused ? "ffmpeg cannot be started: " + std::generic_category().message(refused) : std::string();
}

std::string VideoFile::add(const osg::Image& picture)
{
    const std::size_t row = static_cast<std::size_t>(m_width) * 3;
    m_rows.resize(row * static_cast<std::size_t>(m_height));
    for (int y = 0; y < m_height; ++y)
        std::memcpy(&m_rows[row * static_cast<std::size_t>(y)],
                    picture.data(0, static_cast<unsigned>(m_height - 1 - y)), row);
    ++m_pictures;
    if (m_encoder.write(m_rows.data(), m_rows.size()))
        return std::string();
    const std::string end = m_encoder.finish();
    return "cannot be written: ffmpeg " + (end.empty() ? "ended before the last picture" : end);
}

std::string VideoFile::close()
{
    const std::string end = m_encoder.finish();
    if (!end.empty())
        return "cannot be written: ffmpeg " + end;
    // On a full disk it ends with 0 and says so in words alone.
    if (!m_encoder.message().empty())
        return "cannot be written: ffmpeg says: " + m_encoder.message();
    std::error_code problem;
    const bool device = m_file.temporary() == m_name;
    if (!device && std::filesystem::file_size(m_file.temporary(), problem) == 0)
        return "cannot be written: ffmpeg made an empty file of it";
    const std::string fault = device ? std::string() : faultOf(m_file.temporary(), m_pictures);
    return fault.empty() ? m_file.putInPlace() : fault;
}

}  // namespace KivPlayer
