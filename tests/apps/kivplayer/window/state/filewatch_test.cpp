#include "apps/kivplayer/window/state/filewatch.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "tests/apps/kivplayer/scratchfolder.h"

using KivPlayer::FileWatch;
using Files = std::set<std::string>;

namespace {

class FileWatchTest : public ScratchFolder
{
protected:
    /// What it notices, looking again after a second.
    Files look() { return m_watch.changed({path("a.bvh"), path("b.bvh")}, m_seconds += 1.0); }

    void SetUp() override
    {
        write("a.bvh", "first");
        write("b.bvh", "other");
        EXPECT_EQ(look(), Files());
    }

    FileWatch m_watch{true};
    double m_seconds = 0.0;
};

TEST_F(FileWatchTest, noticesNothingWhereItIsOff)
{
    FileWatch off(false);
    off.changed({path("a.bvh")}, 1.0);
    write("a.bvh", "second one");
    off.changed({path("a.bvh")}, 2.0);
    EXPECT_EQ(off.changed({path("a.bvh")}, 3.0), Files());
}

TEST_F(FileWatchTest, noticesAChangeOnceTheFileHasComeToRest)
{
    write("a.bvh", "second one");
    EXPECT_EQ(look(), Files()) << "it may still be being written";
    EXPECT_EQ(look(), Files{path("a.bvh")});
    EXPECT_EQ(look(), Files()) << "once";
}

TEST_F(FileWatchTest, takesAMissingFileForOneThatIsAboutToCome)
{
    std::filesystem::remove(path("a.bvh"));
    EXPECT_EQ(look(), Files());
    EXPECT_EQ(look(), Files());
    write("a.bvh", "third time");
    look();
    EXPECT_EQ(look(), Files{path("a.bvh")});
}

TEST_F(FileWatchTest, looksAFewTimesASecondAndNoMore)
{
    write("a.bvh", "second one");
    look();
    EXPECT_EQ(m_watch.changed({path("a.bvh")}, m_seconds + 0.1), Files());
    EXPECT_EQ(look(), Files{path("a.bvh")});
}

}  // namespace
