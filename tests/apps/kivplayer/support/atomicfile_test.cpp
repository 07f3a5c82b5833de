#include "apps/kivplayer/support/atomicfile.h"

#include <gmock/gmock.h>

#include <ostream>

#include "tests/apps/kivplayer/scratchfolder.h"

namespace {

using KivPlayer::AtomicFile;
using KivPlayer::writeAtomically;
using testing::HasSubstr;

class AtomicFileTest : public ScratchFolder
{
protected:
    static bool hello(std::ostream& stream) { return static_cast<bool>(stream << "hello\n"); }
};

TEST_F(AtomicFileTest, saysWhyAFolderCannotBeMade)
{
    write("file", "");
    EXPECT_THAT(writeAtomically(path("file/below.txt"), hello), HasSubstr("Not a directory"));
}

TEST_F(AtomicFileTest, saysThatTheDiskIsFullAndLeavesTheOlderFile)
{
    write("a.txt", "older");
    fillTheDiskFor("a.txt");
    EXPECT_THAT(writeAtomically(path("a.txt"), hello), HasSubstr("No space left on device"));
    EXPECT_EQ(contentOf(path("a.txt")), "older");
    EXPECT_EQ(filesThere(), 1u) << "nothing unfinished is left";
}

TEST_F(AtomicFileTest, leavesTheOlderFileWhereTheWriterGivesUp)
{
    write("a.txt", "older");
    EXPECT_NE(writeAtomically(path("a.txt"), [](std::ostream&) { return false; }), "");
    EXPECT_EQ(contentOf(path("a.txt")), "older");
    EXPECT_EQ(filesThere(), 1u);
}

TEST_F(AtomicFileTest, refusesAFolderAsItsGoal)
{
    std::filesystem::create_directories(m_folder / "taken" / "full");
    EXPECT_THAT(writeAtomically(path("taken"), hello), HasSubstr("cannot be written"));
    EXPECT_EQ(filesThere(), 1u);
}

TEST_F(AtomicFileTest, writesDevicesAsTheyAre)
{
    std::filesystem::create_symlink("/dev/null", m_folder / "null");
    EXPECT_EQ(writeAtomically(path("null"), hello), "");
    EXPECT_TRUE(std::filesystem::is_character_file(m_folder / "null")) << "not replaced";
    std::filesystem::create_symlink("/dev/full", m_folder / "full");
    EXPECT_THAT(writeAtomically(path("full"), hello), HasSubstr("No space left on device"));
    EXPECT_TRUE(std::filesystem::is_character_file(m_folder / "full"));
}

TEST_F(AtomicFileTest, isNotThereUntilItIsComplete)
{
    AtomicFile whole(path("new/folder/a.txt"));
    ASSERT_EQ(whole.begin(), "");
    EXPECT_FALSE(std::filesystem::exists(path("new/folder/a.txt")));
    EXPECT_TRUE(std::filesystem::exists(whole.temporary()));
    ASSERT_EQ(whole.putInPlace(), "");
    EXPECT_TRUE(std::filesystem::exists(path("new/folder/a.txt")));
    EXPECT_FALSE(std::filesystem::exists(whole.temporary()));
}

TEST_F(AtomicFileTest, replacesAnOlderFile)
{
    write("a.txt", "older");
    EXPECT_EQ(writeAtomically(path("a.txt"), hello), "");
    EXPECT_EQ(contentOf(path("a.txt")), "hello\n");
}

}  // namespace
