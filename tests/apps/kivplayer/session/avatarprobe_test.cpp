#include "apps/kivplayer/session/avatarprobe.h"

#include <gtest/gtest.h>

#include <chrono>
#include <iostream>
#include <sstream>

#include "apps/kivplayer/session/session.h"
#include "tests/support/contentfolder.h"
#include "tests/support/corruption.h"
#include "tests/support/figures.h"
#include "tests/support/motionlibrary.h"

namespace {

using namespace KivPlayer;
using namespace KivTestSupport;

class AvatarProbe : public testing::Test
{
protected:
    AvatarProbe() : m_content("trial")
    {
        m_content.copyFont();
        m_content.writeAvatar(*smallAvatar());
        m_whole = readWholeFile(m_content.avatarFile());
    }

    std::string problem() const { return avatarProbeProblem(m_content.root(), 1, KIV_PLAYER); }

    ContentFolder m_content;
    std::string m_whole;
};

TEST_F(AvatarProbe, aRootWithoutAnAvatarIsNoMatterOfTheTrial)
{
    EXPECT_EQ(avatarProbeProblem(m_content.root() + "/nowhere", 1, KIV_PLAYER), "");
}

TEST_F(AvatarProbe, aRefusedAvatarIsNoMatterOfTheTrial)
{
    m_content.writeAvatarBytes("this is no avatar");
    EXPECT_EQ(problem(), "");
}

TEST_F(AvatarProbe, aSoundAvatarPasses)
{
    EXPECT_EQ(problem(), "");
}

TEST_F(AvatarProbe, aDamagedAvatarEndsTheTrialAndNotTheProgram)
{
    int ended = 0;
    for (unsigned int seed = 1; seed <= 40; ++seed) {
        m_content.writeAvatarBytes(corrupted(m_whole, seed));
        const auto start = std::chrono::steady_clock::now();
        const std::string said = problem();
        const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
        EXPECT_LT(spent.count(), 10.0) << "corruption " << seed;
        if (!said.empty()) {
            ++ended;
            EXPECT_NE(said.find("ended "), std::string::npos) << said;
        }
    }
    std::cout << ended << " of 40 corrupt avatars ended the process that tried them" << std::endl;
    // The reading library is known to loop or crash on about one in ten; were there none, nothing was tried.
    EXPECT_GT(ended, 0);
}

TEST_F(AvatarProbe, aSessionSaysWhichAvatarIsDamagedAndDoesNotLoadIt)
{
    std::ostringstream said;
    Console console(said, Console::Verbosity::Normal);
    Session session(console);
    Options options;
    options.root = m_content.root();
    options.ownProgram = "false";
    EXPECT_FALSE(startSession(session, options, console));
    EXPECT_NE(said.str().find(m_content.avatarFile().string() + ": error: the avatar is damaged"),
              std::string::npos)
        << said.str();
}

}  // namespace
