#include "KivCommonDef/kivfileutils.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using KivCommonDef::KivFileUtils;

class WorkingFolder : public testing::Test
{
protected:
    void TearDown() override { std::filesystem::current_path(m_before); }

    std::filesystem::path m_before = std::filesystem::current_path();
};

TEST_F(WorkingFolder, isEmptyOnceTheFolderIsGone)
{
    const auto gone = std::filesystem::temp_directory_path() / "kivfileutilstest-gone";
    std::filesystem::create_directories(gone);
    std::filesystem::current_path(gone);
    std::filesystem::remove(gone);
    EXPECT_EQ(KivFileUtils::GetCurrentWorkingDir(), "");
}

TEST_F(WorkingFolder, isTheProcessesOwn)
{
    EXPECT_EQ(KivFileUtils::GetCurrentWorkingDir(), m_before.string());
    std::filesystem::current_path(std::filesystem::temp_directory_path());
    EXPECT_TRUE(std::filesystem::equivalent(KivFileUtils::GetCurrentWorkingDir(),
                                            std::filesystem::temp_directory_path()));
}

TEST_F(WorkingFolder, carriesNoClosingSeparatorEvenAtTheRoot)
{
    std::filesystem::current_path("/");
    EXPECT_EQ(KivFileUtils::GetCurrentWorkingDir() + "/Data", "/Data");
}

}  // namespace
