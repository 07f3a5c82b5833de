#include "apps/kivplayer/options/inputprotection.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/apps/kivplayer/scratchfolder.h"

namespace {

using KivPlayer::parseOptions;
using KivPlayer::Parsing;
using testing::AllOf;
using testing::HasSubstr;

constexpr const char* kMotion = "HIERARCHY\nROOT Hips\n";

class InputProtection : public ScratchFolder
{
protected:
    InputProtection() : m_motion(write("walk.bvh", kMotion)), m_other(write("wave.bvh", kMotion)) {}

    static Parsing parse(const std::vector<std::string>& arguments)
    {
        std::vector<const char*> argv{"kivplayer"};
        for (const std::string& argument : arguments)
            argv.push_back(argument.c_str());
        return parseOptions(static_cast<int>(argv.size()), argv.data());
    }

    /// Refused with 2, in a line that names both.
    static void expectRefused(const std::vector<std::string>& arguments, const std::string& output,
                              const std::string& input)
    {
        const Parsing parsing = parse(arguments);
        EXPECT_FALSE(parsing.options) << output;
        EXPECT_EQ(parsing.exitCode, 2);
        EXPECT_THAT(parsing.error, AllOf(HasSubstr(output), HasSubstr(input)));
    }

    std::string m_motion, m_other;
};

TEST_F(InputProtection, refusesAReportOverTheFirstOfSeveralMotions)
{
    expectRefused({"--no-render", "--report", m_motion, m_other}, m_motion, m_other);
}

TEST_F(InputProtection, refusesEveryKindOfOutputOverTheMotionItself)
{
    const std::string table = write("walk.csv", kMotion);
    expectRefused({"--export", table, table}, table, table);
    const std::string picture = write("walk.png", kMotion);
    expectRefused({"--output", picture, picture}, picture, picture);
    expectRefused({"--no-render", "--report", m_motion, m_motion}, m_motion, m_motion);
}

TEST_F(InputProtection, refusesTheSameFileUnderAnotherNameAndBehindALink)
{
    const std::string table = write("walk.csv", kMotion);
    std::filesystem::create_symlink(table, path("link.csv"));
    expectRefused({"--export", path("link.csv"), table}, path("link.csv"), table);
    std::filesystem::create_hard_link(table, path("hard.csv"));
    expectRefused({"--export", path("hard.csv"), table}, path("hard.csv"), table);
    std::filesystem::create_directory(path("below"));
    expectRefused({"--export", path("below/../walk.csv"), table}, path("below/../walk.csv"), table);
}

TEST_F(InputProtection, refusesAnOutputWhoseUnfinishedFileWouldBeAnInput)
{
    const std::string part = write("fit.json.part", kMotion);
    expectRefused({"--no-render", "--report", path("fit.json"), part}, path("fit.json"), part);
}

TEST_F(InputProtection, refusesAReferenceAndAnAliasTable)
{
    const std::string reference = write("reference.png", "");
    expectRefused({"--output", reference, "--reference", reference, m_motion}, "--output", reference);
    const std::string table = write("studio.profile", "");
    expectRefused({"--no-render", "--report", table, "--profile", table, m_motion}, "--profile", table);
}

TEST_F(InputProtection, knowsAMotionByWhatItHolds)
{
    const std::string motion = write("take.json", "\xEF\xBB\xBF\r\nhierarchy\n");
    expectRefused({"--no-render", "--report", motion, m_other}, motion, "motion file");
}

TEST_F(InputProtection, letsOutputsReplaceWhatIsNoInput)
{
    const std::string report = write("fit.json", "{\"actors\": []}");
    EXPECT_TRUE(parse({"--no-render", "--report", report, m_motion}).options);
    EXPECT_TRUE(parse({"--no-render", "--report", "-", m_motion}).options);
    EXPECT_TRUE(parse({"--output", path("new/walk.png"), m_motion}).options);
    EXPECT_TRUE(parse({"--output", path("new/{frame}.png"), m_motion}).options);
}

}  // namespace
