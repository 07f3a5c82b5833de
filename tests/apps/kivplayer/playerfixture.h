#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "KivMemoryShare/scenecfgshare.h"
#include "apps/kivplayer/session/session.h"
#include "apps/kivplayer/support/console.h"
#include "tests/support/builtpaths.h"
#include "tests/support/motionlibrary.h"

/// A session on the build's run-time root, and a folder for files.
class PlayerFixture : public testing::Test
{
protected:
    void SetUp() override
    {
        const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
        m_folder = std::filesystem::path(testing::TempDir()) / ("kivplayer-" + name);
        std::filesystem::remove_all(m_folder);
        std::filesystem::create_directories(m_folder);
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    static std::string sample(const std::string& name)
    {
        return std::string(KivTestSupport::kRuntimeRoot) + "/Data/BVH/" + name + ".bvh";
    }

    std::string file(const std::string& name, const std::string& text) const
    {
        std::ofstream(m_folder / name, std::ios::binary) << text;
        return (m_folder / name).string();
    }

    static unsigned actorsInTheScene()
    {
        return KivMemoryShare::SceneCfgShare::instance()->getCharacterSceneNode()->getNumChildren();
    }

    std::filesystem::path m_folder;
    std::ostringstream m_said;
    KivPlayer::Console m_console{m_said, KivPlayer::Console::Verbosity::Normal};
};
