#include "apps/kivplayer/window/inspection/statefile.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/apps/kivplayer/scratchfolder.h"

using KivPlayer::StateFile;

namespace {

class StateFileTest : public ScratchFolder
{
};

TEST_F(StateFileTest, saysWhyItCannotBeWrittenAndKeepsTheLastOne)
{
    const StateFile file(path("state.json"));
    EXPECT_EQ(file.write({{"frame", 1}}), "");
    fillTheDiskFor("state.json");
    EXPECT_NE(file.write({{"frame", 2}}), "");
    EXPECT_EQ(nlohmann::json::parse(contentOf(path("state.json"))).at("frame"), 1);
}

TEST_F(StateFileTest, isWantedWhereItHasAName)
{
    StateFile none("");
    EXPECT_FALSE(none.isWanted());
    EXPECT_FALSE(none.isDue(100.0));
}

TEST_F(StateFileTest, isDueTenTimesASecond)
{
    StateFile file(path("state.json"));
    EXPECT_TRUE(file.isDue(0.0));
    EXPECT_FALSE(file.isDue(0.05));
    EXPECT_TRUE(file.isDue(0.11));
}

TEST_F(StateFileTest, writesTextThatIsNoUnicodeAsReplacement)
{
    const StateFile file(path("state.json"));
    EXPECT_EQ(file.write({{"name", "\xFF"}}), "");
    EXPECT_EQ(nlohmann::json::parse(contentOf(path("state.json"))).at("name"), "\xEF\xBF\xBD");
}

}  // namespace
