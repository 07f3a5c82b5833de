#include "apps/kivplayer/content/loadingprogress.h"

#include <gmock/gmock.h>

#include "tests/apps/kivplayer/playerfixture.h"
#include "tests/support/builtpaths.h"

namespace {

using KivPlayer::LoadingProgress;
using KivPlayer::Progress;
using std::chrono::milliseconds;
using testing::HasSubstr;
using testing::Not;

/// A motion file of three megabytes.
class LoadingProgressTest : public PlayerFixture
{
protected:
    void SetUp() override
    {
        PlayerFixture::SetUp();
        ASSERT_TRUE(m_session.start(KivTestSupport::kRuntimeRoot));
        m_file = file("long.bvh", text(""));
    }

    static std::string text(const std::string& last)
    {
        const std::string row(2999, ' ');
        std::string text = "HIERARCHY\nROOT Hips\n{\nOFFSET 0 0 0\nCHANNELS 1 Xposition\n}\nMOTION\n";
        text += "Frames: 1000\nFrame Time: 0.01\n";
        for (int i = 0; i < 1000; ++i)
            text += (i + 1 < 1000 || last.empty() ? "1" : last) + row + "\n";
        return text;
    }

    std::string loaded(const std::vector<std::string>& files, Progress::Style style, milliseconds patience)
    {
        {
            LoadingProgress progress(m_console, files.size(), style, patience);
            for (unsigned i = 0; i < files.size(); ++i) {
                progress.begin(files[i]);
                m_session.load(i, files[i], "A");
                progress.end();
            }
        }
        return m_said.str();
    }

    KivPlayer::Session m_session{m_console, "profile=off"};
    std::string m_file;
};

TEST_F(LoadingProgressTest, saysNothingOfFilesThatAreThereAtOnceNorWhereItIsToBeSilent)
{
    EXPECT_EQ(loaded({m_file, m_file}, Progress::Style::Lines, std::chrono::hours(1)), "");
    EXPECT_EQ(loaded({m_file, m_file}, Progress::Style::Silent, milliseconds(0)), "");
}

TEST_F(LoadingProgressTest, endsItsLineBeforeItIsSaidWhyAFileIsRefused)
{
    const std::string broken = file("broken.bvh", text("nonsense"));
    const std::string said = loaded({broken}, Progress::Style::Terminal, milliseconds(0));
    EXPECT_THAT(said, HasSubstr("reading " + broken + " 2/3 MB ("));
    EXPECT_THAT(said, HasSubstr("%)\x1b[K\nkivplayer: " + broken + ":1009:1: error: "));
    EXPECT_THAT(said, Not(HasSubstr("dressing")));
}

TEST_F(LoadingProgressTest, saysHowFarALongFileIsReadAndDressed)
{
    const std::string said = loaded({m_file}, Progress::Style::Lines, milliseconds(0));
    for (const char* step : {"reading", "dressing"}) {
        const std::string line = "kivplayer: " + std::string(step) + " " + m_file + " ";
        EXPECT_THAT(said, HasSubstr(line + "100 %\n"));
        std::size_t lines = 0;
        for (std::size_t at = said.find(line); at != std::string::npos; at = said.find(line, at + 1))
            ++lines;
        EXPECT_GE(lines, 8u) << "one at about every ten percent";
        EXPECT_LE(lines, 10u);
    }
    EXPECT_LT(said.find("reading"), said.find("dressing"));
    EXPECT_THAT(said, Not(HasSubstr("motions read"))) << "there is one";
}

TEST_F(LoadingProgressTest, saysHowManyOfSeveralFilesAreRead)
{
    const std::string said = loaded({m_file, m_file}, Progress::Style::Terminal, milliseconds(0));
    EXPECT_THAT(said, HasSubstr("\rreading " + m_file + " 3/3 MB (100 %)\x1b[K\n"));
    EXPECT_THAT(said, HasSubstr("\rmotions read 1/2 (50 %)\x1b[K"));
    EXPECT_THAT(said, HasSubstr("\rmotions read 2/2 (100 %)\x1b[K\n"));
}

}  // namespace
