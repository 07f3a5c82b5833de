#include "apps/kivplayer/support/childprocess.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <string>

namespace {

using KivPlayer::ChildProcess;

/// What a shell script says to `bytes` bytes of input.
std::string endOf(const std::string& script, std::size_t bytes, bool* taken = nullptr)
{
    ChildProcess child;
    EXPECT_EQ(child.start("sh", {"-c", script}), 0);
    const std::string input(bytes, 'x');
    const bool all = child.write(input.data(), input.size());
    if (taken)
        *taken = all;
    return child.finish();
}

TEST(ChildProcess, answersWithTheSystemsErrorForAProgramThatIsNotThere)
{
    ChildProcess child;
    EXPECT_EQ(child.start("no-program-of-this-name", {}), ENOENT);
}

TEST(ChildProcess, tellsHowAProgramFailedInItsOwnWords)
{
    EXPECT_EQ(endOf("cat >/dev/null; exit 3", 10), "ended with 3");
    EXPECT_EQ(endOf("cat >/dev/null; echo no room >&2; echo gone >&2; exit 1", 10), "ended with 1: no room");
    EXPECT_EQ(endOf("cat >/dev/null; kill -9 $$", 10), "was ended by signal 9");
}

TEST(ChildProcess, outlivesAProgramThatStopsReading)
{
    bool taken = true;
    EXPECT_EQ(endOf("head -c 1000 >/dev/null", 10000000, &taken), "");
    EXPECT_FALSE(taken);
    EXPECT_EQ(endOf("head -c 1000 >/dev/null; kill -9 $$", 10000000, &taken), "was ended by signal 9");
    EXPECT_FALSE(taken);
}

TEST(ChildProcess, isNotHeldUpByAProgramThatTalksALot)
{
    bool taken = false;
    EXPECT_EQ(endOf("yes | head -c 1000000 >&2; cat >/dev/null", 1000000, &taken), "");
    EXPECT_TRUE(taken);
}

TEST(ChildProcess, handsOverEveryByteAndTheEnd)
{
    EXPECT_EQ(endOf("test \"$(wc -c)\" -eq 3000000", 3000000), "");
}

TEST(ChildProcess, passesWordsOnAsTheyAre)
{
    ChildProcess child;
    ASSERT_EQ(child.start("test", {"a b;$HOME", "=", "a b;$HOME"}), 0);
    EXPECT_EQ(child.finish(), "");
}

TEST(ChildProcess, keepsWhatAProgramPrintsAndItsFirstComplaintWhateverItAnswers)
{
    ChildProcess child;
    ASSERT_EQ(child.start("sh", {"-c", "echo 12; echo odd >&2; echo more >&2"}, ChildProcess::Output::Kept),
              0);
    EXPECT_EQ(child.finish(), "");
    EXPECT_EQ(child.output(), "12\n");
    EXPECT_EQ(child.message(), "odd");
}

TEST(ChildProcess, endsAProgramThatNobodyWaitedFor)
{
    ChildProcess child;
    ASSERT_EQ(child.start("sleep", {"1000"}), 0);
    // The test's own time limit would tell.
}

}  // namespace
