#include "apps/kivplayer/content/motionfilereader.h"

#include <gmock/gmock.h>

#include <sstream>

#include "tests/apps/kivplayer/scratchfolder.h"

namespace {

using KivPlayer::Console;
using KivPlayer::MotionFileReader;
using testing::HasSubstr;
using testing::StartsWith;

const char* const kChain =
    "HIERARCHY\nROOT Base\n{\n  OFFSET 0 0 0\n  CHANNELS 3 Xrotation Yrotation Zrotation\n  End Site\n  {\n"
    "    OFFSET 0 5 0\n  }\n}\nMOTION\nFrames: 2\nFrame Time: 0.1\n0 0 0\n0 0 1\n";

class MotionFileReaderTest : public ScratchFolder
{
protected:
    std::optional<KivPlayer::MotionFile> read(const std::string& file, const std::string& reading)
    {
        return MotionFileReader(m_console, reading).read(2, file, "Ann");
    }

    std::ostringstream m_said;
    Console m_console{m_said, Console::Verbosity::Quiet};
};

TEST_F(MotionFileReaderTest, saysWhyAFileCannotBeRead)
{
    EXPECT_FALSE(read(path("nobody.bvh"), "profile=off"));
    EXPECT_THAT(m_said.str(), HasSubstr("nobody.bvh: error: no such file\n"));
    EXPECT_FALSE(read(m_folder.string(), "profile=off"));
    EXPECT_THAT(m_said.str(), HasSubstr(": error: is a folder; expected a motion file\n"));
    EXPECT_FALSE(read(write("broken.bvh", "HIERARCHY\nROOT Base\n(\n"), "profile=off"));
    EXPECT_THAT(m_said.str(), HasSubstr("broken.bvh:3:1: error: "));
}

TEST_F(MotionFileReaderTest, readsNothingWithATableThatIsBroken)
{
    const std::string table = write("own.profile", "dialect mine\nno such word\n");
    MotionFileReader reader(m_console, "profile=\"" + table + "\"");
    EXPECT_FALSE(reader.readProfileTable());
    EXPECT_THAT(m_said.str(), StartsWith("kivplayer: " + table + ":"));
    EXPECT_FALSE(reader.read(0, write("chain.bvh", kChain), "A"));
}

TEST_F(MotionFileReaderTest, saysThatAFileIsNotRecognisedAsAPersonEvenToThoseWhoAskedForQuiet)
{
    const auto motion = read(write("chain.bvh", kChain), "profile=auto");
    ASSERT_TRUE(motion);
    EXPECT_FALSE(motion->actor.isPerson);
    EXPECT_THAT(m_said.str(), HasSubstr("chain.bvh: warning: not recognised as a person: "));
    EXPECT_TRUE(m_console.hasFailed());
}

TEST_F(MotionFileReaderTest, asksNobodyToBeAPersonWithTheProfileOff)
{
    const auto motion = read(write("chain.bvh", kChain), "profile=off");
    ASSERT_TRUE(motion);
    EXPECT_TRUE(motion->actor.isPerson);
    EXPECT_EQ(m_said.str(), "");
    EXPECT_EQ(motion->text, kChain);
    EXPECT_EQ(motion->actor.index, 2U);
    EXPECT_EQ(motion->actor.name, "Ann");
    EXPECT_EQ(motion->actor.frames(), 2U);
    EXPECT_TRUE(motion->actor.document.values.empty()) << "the module reads them by itself";
}

}  // namespace
