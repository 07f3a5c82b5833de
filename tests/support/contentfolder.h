#pragma once

#include <osg/Node>
#include <osgDB/WriteFile>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/builtpaths.h"

namespace KivTestSupport {

/// A run-time root of its own for one test: Data/IVE and Data/Font, filled as the test wants, removed with
/// it.
class ContentFolder
{
public:
    explicit ContentFolder(const std::string& name)
        : m_root(std::filesystem::temp_directory_path() / ("kiv_" + name + "_" + std::to_string(::getpid())))
    {
        std::filesystem::remove_all(m_root);
        std::filesystem::create_directories(m_root / "Data" / "IVE");
        std::filesystem::create_directories(m_root / "Data" / "Font");
    }
    ~ContentFolder() { std::filesystem::remove_all(m_root); }
    ContentFolder(const ContentFolder&) = delete;
    ContentFolder& operator=(const ContentFolder&) = delete;

    std::string root() const { return m_root.string(); }
    std::filesystem::path avatarFile() const { return m_root / "Data" / "IVE" / "avatar.ive"; }
    std::filesystem::path fontFile() const { return m_root / "Data" / "Font" / "arial.ttf"; }

    void writeAvatar(const osg::Node& model) { osgDB::writeNodeFile(model, avatarFile().string()); }
    void writeAvatarBytes(const std::string& bytes) { write(avatarFile(), bytes); }
    void writeFontBytes(const std::string& bytes) { write(fontFile(), bytes); }
    /// The font that the build puts into place.
    void copyFont()
    {
        std::filesystem::copy_file(
            std::filesystem::path(KivTestSupport::kRuntimeRoot) / "Data" / "Font" / "arial.ttf", fontFile(),
            std::filesystem::copy_options::overwrite_existing);
    }

private:
    static void write(const std::filesystem::path& file, const std::string& bytes)
    {
        std::ofstream(file, std::ios::binary) << bytes;
    }

    std::filesystem::path m_root;
};

}  // namespace KivTestSupport
