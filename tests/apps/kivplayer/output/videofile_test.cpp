#include "apps/kivplayer/output/videofile.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "tests/apps/kivplayer/scratchfolder.h"

namespace {

using KivPlayer::VideoFile;
using testing::HasSubstr;

constexpr int kWidth = 64;
constexpr int kHeight = 48;

/// Red above, blue below, with a white column that moves to the right.
osg::ref_ptr<osg::Image> pictureAt(int column)
{
    osg::ref_ptr<osg::Image> image = new osg::Image;
    image->allocateImage(kWidth, kHeight, 1, GL_RGB, GL_UNSIGNED_BYTE, 1);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            unsigned char* pixel = image->data(static_cast<unsigned>(x), static_cast<unsigned>(y));
            const bool white = x / 4 == column;
            pixel[0] = white || y >= kHeight / 2 ? 230 : 0;
            pixel[1] = white ? 230 : 0;
            pixel[2] = white || y < kHeight / 2 ? 230 : 0;
        }
    }
    return image;
}

std::string outputOf(const std::string& command)
{
    std::string output;
    std::FILE* pipe = popen(command.c_str(), "r");
    std::array<char, 4096> bytes{};
    while (const std::size_t count = pipe ? std::fread(bytes.data(), 1, bytes.size(), pipe) : 0)
        output.append(bytes.data(), count);
    return pipe && pclose(pipe) == 0 ? output : "failed: " + command;
}

class VideoFileTest : public ScratchFolder
{
protected:
    void SetUp() override { m_path = std::getenv("PATH"); }
    void TearDown() override { setenv("PATH", m_path.c_str(), 1); }

    /// A program of that name that is found before, or in place of, the real one.
    void putInFront(const std::string& script)
    {
        const std::filesystem::path program = m_folder / "bin" / "ffmpeg";
        std::filesystem::create_directories(program.parent_path());
        std::ofstream(program) << "#!/bin/sh\n" << script << "\n";
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        setenv("PATH", (program.parent_path().string() + ":" + m_path).c_str(), 1);
    }

    /// @return the first problem; empty where there is a video.
    std::string make(const std::string& name, int frames = 10, double fps = 25.0)
    {
        VideoFile video(path(name), kWidth, kHeight, fps);
        std::string problem = video.open();
        for (int i = 0; i < frames && problem.empty(); ++i)
            problem = video.add(*pictureAt(i));
        return problem.empty() ? video.close() : problem;
    }

    bool unfinishedThere(const std::string& name) const
    {
        return std::filesystem::exists(path(name + ".part"));
    }

    std::string m_path;
};

/// Those need the real encoder.
class RealVideo : public VideoFileTest
{
protected:
    void SetUp() override
    {
        VideoFileTest::SetUp();
        if (std::system("ffmpeg -version >/dev/null 2>&1 && ffprobe -version >/dev/null 2>&1") != 0)
            GTEST_SKIP() << "ffmpeg is not installed";
    }

    std::string probed(const std::string& name) const
    {
        return outputOf(
            "ffprobe -v error -count_frames -show_entries "
            "stream=codec_name,width,height,r_frame_rate,nb_read_frames -of csv=p=0 '" +
            path(name) + "'");
    }
};

TEST_F(VideoFileTest, offersPicturesWhereThereIsNoEncoder)
{
    setenv("PATH", path("nowhere").c_str(), 1);
    const std::string problem = make("walk.mp4");
    EXPECT_THAT(problem, HasSubstr("no ffmpeg"));
    EXPECT_THAT(problem, HasSubstr("walk/{frame:04}.png"));
    EXPECT_EQ(filesThere(), 0u);
}

TEST_F(VideoFileTest, saysWhatAFailingEncoderSaid)
{
    putInFront("cat >/dev/null; echo 'Unknown encoder' >&2; exit 1");
    EXPECT_EQ(make("walk.mp4"), "cannot be written: ffmpeg ended with 1: Unknown encoder");
    EXPECT_FALSE(std::filesystem::exists(path("walk.mp4")));
    EXPECT_FALSE(unfinishedThere("walk.mp4"));
}

TEST_F(VideoFileTest, outlivesAnEncoderThatDiesMidway)
{
    putInFront("head -c 50000 >/dev/null; kill -9 $$");
    EXPECT_EQ(make("walk.mp4", 500), "cannot be written: ffmpeg was ended by signal 9");
    putInFront("head -c 50000 >/dev/null");
    EXPECT_EQ(make("walk.mp4", 500), "cannot be written: ffmpeg ended before the last picture");
    EXPECT_FALSE(std::filesystem::exists(path("walk.mp4")));
    EXPECT_FALSE(unfinishedThere("walk.mp4"));
}

TEST_F(VideoFileTest, takesNoEmptyFileForAVideo)
{
    putInFront("cat >/dev/null");
    EXPECT_THAT(make("walk.mp4"), HasSubstr("empty"));
    EXPECT_FALSE(std::filesystem::exists(path("walk.mp4")));
}

TEST_F(VideoFileTest, believesNoEncoderThatComplainsAndAnswersZero)
{
    write("walk.mp4", "older");
    putInFront(
        "cat >/dev/null; echo 'av_interleaved_write_frame(): No space left' >&2; for last; do :; done; "
        "echo video >\"${last#file:}\"");
    EXPECT_EQ(make("walk.mp4"),
              "cannot be written: ffmpeg says: av_interleaved_write_frame(): No space left");
    EXPECT_EQ(contentOf(path("walk.mp4")), "older");
    EXPECT_FALSE(unfinishedThere("walk.mp4"));
}

TEST_F(VideoFileTest, saysWhyAFolderCannotBeMadeBeforeAnythingIsDrawn)
{
    write("file", "");
    EXPECT_THAT(VideoFile(path("file/walk.mp4"), kWidth, kHeight, 25.0).open(), HasSubstr("Not a directory"));
}

TEST_F(RealVideo, saysThatTheDiskIsFullAndLeavesTheOlderVideo)
{
    write("walk.mp4", "older");
    fillTheDiskFor("walk.mp4");
    EXPECT_THAT(make("walk.mp4"), HasSubstr("No space left on device"));
    EXPECT_EQ(contentOf(path("walk.mp4")), "older");
    EXPECT_FALSE(unfinishedThere("walk.mp4"));
}

/// The encoder answers 0 and is silent, and the video is not whole: what a disk that fills up can look like.
TEST_F(RealVideo, isReadToItsEndBeforeItReplacesAnOlderOne)
{
    for (const char* name : {"a.mp4", "a.mkv", "a.webm", "a.gif"}) {
        for (const int percent : {1, 10, 50, 90, 99}) {
            write(name, "older");
            const std::string real = outputOf("command -v ffmpeg");
            putInFront("PATH='" + m_path + "'; " + real.substr(0, real.find('\n')) +
                       " \"$@\" || exit; for last; do :; done; file=\"${last#file:}\"; "
                       "truncate -s $(($(stat -c %s \"$file\") * " +
                       std::to_string(percent) + " / 100)) \"$file\"");
            EXPECT_NE(make(name, 25), "") << name << " cut to " << percent << " %";
            EXPECT_EQ(contentOf(path(name)), "older") << name << " cut to " << percent << " %";
            EXPECT_FALSE(unfinishedThere(name));
            setenv("PATH", m_path.c_str(), 1);
        }
    }
}

TEST_F(RealVideo, hasEveryPictureTheSizeAndTheRate)
{
    for (const auto& [name, codec] : {std::pair("a.mp4", "h264"), {"a.mkv", "h264"}, {"a.webm", "vp9"}}) {
        ASSERT_EQ(make(name, 12, 25.0), "") << name;
        EXPECT_EQ(probed(name), codec + std::string(",64,48,25/1,12\n"));
    }
    ASSERT_EQ(make("a.gif", 12, 20.0), "");
    EXPECT_EQ(probed("a.gif"), "gif,64,48,20/1,12\n");
}

TEST_F(RealVideo, keepsFractionsOfARate)
{
    ASSERT_EQ(make("a.mp4", 12, 29.97), "");
    EXPECT_EQ(probed("a.mp4"), "h264,64,48,2997/100,12\n");
}

TEST_F(RealVideo, standsUprightAndKeepsItsColours)
{
    for (const char* name : {"a.mp4", "a.gif"}) {
        ASSERT_EQ(make(name, 12), "");
        const std::string frame =
            outputOf("ffmpeg -v error -i '" + path(name) + "' -frames:v 1 -f rawvideo -pix_fmt rgb24 - 2>&1");
        ASSERT_EQ(frame.size(), 3u * kWidth * kHeight) << frame;
        const auto near = [&](int x, int y, int red, int green, int blue) {
            const auto* pixel = reinterpret_cast<const unsigned char*>(frame.data()) + 3 * (y * kWidth + x);
            EXPECT_NEAR(pixel[0], red, 8) << name;
            EXPECT_NEAR(pixel[1], green, 8) << name;
            EXPECT_NEAR(pixel[2], blue, 8) << name;
        };
        near(40, 6, 230, 0, 0);
        near(40, 40, 0, 0, 230);
    }
}

TEST_F(RealVideo, isTheSameBytesEveryTime)
{
    for (const char* ending : {"mp4", "mkv", "webm", "gif"}) {
        const std::string one = std::string("one.") + ending;
        const std::string other = std::string("other.") + ending;
        ASSERT_EQ(make(one), "");
        ASSERT_EQ(make(other), "");
        EXPECT_EQ(contentOf(path(one)), contentOf(path(other))) << ending;
        EXPECT_THAT(contentOf(path(one)), testing::Not(HasSubstr("Lavf5")))
            << "no program's version: " << ending;
    }
}

}  // namespace
