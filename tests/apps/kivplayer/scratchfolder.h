#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// A folder of a test's own, empty at its start and gone after it.
class ScratchFolder : public testing::Test
{
protected:
    ScratchFolder()
    {
        const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
        m_folder = std::filesystem::path(testing::TempDir()) /
                   (std::string("kivplayer-") + test->test_suite_name() + "-" + test->name());
        std::filesystem::remove_all(m_folder);
        std::filesystem::create_directories(m_folder);
    }
    ~ScratchFolder() override { std::filesystem::remove_all(m_folder); }

    std::string path(const std::string& name) const { return (m_folder / name).string(); }

    std::string write(const std::string& name, const std::string& text) const
    {
        std::ofstream(m_folder / name, std::ios::binary) << text;
        return path(name);
    }

    static std::string contentOf(const std::string& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

    /// The device on which everything is full stands where a file would be written first.
    void fillTheDiskFor(const std::string& name) const
    {
        std::filesystem::create_symlink("/dev/full", m_folder / (name + ".part"));
    }

    std::size_t filesThere() const
    {
        const std::filesystem::directory_iterator files(m_folder);
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

    std::filesystem::path m_folder;
};
