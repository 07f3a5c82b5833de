#include "apps/kivplayer/support/console.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using KivPlayer::Console;

TEST(Console, saysWhereAnErrorIsInOneLine)
{
    std::ostringstream said;
    Console console(said, Console::Verbosity::Normal);
    console.error({"walk.bvh", 12, 5, "expected a number"});
    console.error({"walk.bvh", 12, 0, "expected a number"});
    console.error({"walk.bvh", 0, 5, "no such file"});
    console.error({"", 0, 0, "no display"});
    EXPECT_EQ(said.str(),
              "kivplayer: walk.bvh:12:5: error: expected a number\n"
              "kivplayer: walk.bvh:12: error: expected a number\n"
              "kivplayer: walk.bvh: error: no such file\n"
              "kivplayer: error: no display\n");
    EXPECT_EQ(console.errors().size(), 4u);
}

TEST(Console, keepsErrorsWhenItIsQuiet)
{
    std::ostringstream said;
    Console console(said, Console::Verbosity::Quiet);
    console.warning({"walk.bvh", 3, 1, "odd"});
    console.note("loading");
    EXPECT_EQ(said.str(), "");
    console.error({"walk.bvh", 3, 1, "bad"});
    EXPECT_EQ(said.str(), "kivplayer: walk.bvh:3:1: error: bad\n");
}

TEST(Console, saysAFailureEvenToThoseWhoAskedForQuiet)
{
    std::ostringstream said;
    Console console(said, Console::Verbosity::Quiet);
    EXPECT_FALSE(console.hasFailed());
    console.failure({"dog.bvh", 0, 0, "no person"});
    EXPECT_EQ(said.str(), "kivplayer: dog.bvh: warning: no person\n");
    EXPECT_TRUE(console.hasFailed());
    EXPECT_TRUE(console.errors().empty());
}

TEST(Console, doesNotCountWarningsAsErrors)
{
    std::ostringstream said;
    Console console(said, Console::Verbosity::Verbose);
    console.warning({"walk.bvh", 3, 1, "odd"});
    console.note("loading");
    EXPECT_EQ(said.str(), "kivplayer: walk.bvh:3:1: warning: odd\nkivplayer: loading\n");
    EXPECT_TRUE(console.errors().empty());
    EXPECT_FALSE(console.hasFailed());
}

TEST(Console, neverShowsATerminalTheControlCharactersOfAFile)
{
    std::ostringstream said;
    Console console(said, Console::Verbosity::Verbose);
    console.error({"a\x1b[2J.bvh", 3, 1, "joint \a"});
    console.warning({"", 0, 0, "\x1b"});
    console.say("\x1b\n");
    console.note("\x1b");
    EXPECT_EQ(said.str(),
              "kivplayer: a\\x1B[2J.bvh:3:1: error: joint \\x07\nkivplayer: warning: \\x1B\n\\x1B\n"
              "kivplayer: \\x1B\n");
}

}  // namespace
