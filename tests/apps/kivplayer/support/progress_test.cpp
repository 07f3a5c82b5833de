#include "apps/kivplayer/support/progress.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace {

using KivPlayer::Progress;

TEST(Progress, writesALineEveryTenPercentOffATerminal)
{
    std::ostringstream said;
    {
        Progress progress(said, Progress::Style::Lines, "pictures", 1000);
        for (unsigned long long i = 1; i <= 1000; ++i)
            progress.done(i);
    }
    const std::string text = said.str();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 10);
    EXPECT_EQ(text.substr(0, 25), "kivplayer: pictures 10 %\n");
    EXPECT_NE(text.find("kivplayer: pictures 100 %\n"), std::string::npos);
}

TEST(Progress, writesOverOneLineOnATerminalAndEndsIt)
{
    std::ostringstream said;
    {
        Progress progress(said, Progress::Style::Terminal, "pictures", 4);
        progress.done(1);
        progress.done(2);
    }
    EXPECT_EQ(said.str(), "\rpictures 1/4 (25 %)\x1b[K\rpictures 2/4 (50 %)\x1b[K\n");
}

TEST(Progress, countsInAUnit)
{
    std::ostringstream said;
    {
        Progress progress(said, Progress::Style::Terminal, "reading", 87654321, std::chrono::milliseconds(0),
                          {"MB", 1000000});
        progress.done(12345678);
    }
    EXPECT_EQ(said.str(), "\rreading 12/87 MB (14 %)\x1b[K\n");
}

TEST(Progress, saysNothingWhenSilentOrWhenNothingIsToBeDone)
{
    std::ostringstream said;
    {
        Progress silent(said, Progress::Style::Silent, "pictures", 4);
        silent.done(4);
        Progress none(said, Progress::Style::Lines, "pictures", 0);
    }
    EXPECT_EQ(said.str(), "");
}

TEST(Progress, saysNothingOfAJobThatIsOverBeforeAnybodyWaits)
{
    std::ostringstream said;
    {
        Progress progress(said, Progress::Style::Lines, "export", 100, std::chrono::hours(1));
        for (unsigned long long i = 1; i <= 100; ++i)
            progress.done(i);
    }
    EXPECT_EQ(said.str(), "");
}

}  // namespace
