#pragma once

#include <optional>
#include <string>

#include "KivReader/humanoidprofile.h"
#include "apps/kivplayer/content/loadedactor.h"
#include "apps/kivplayer/support/console.h"

namespace KivPlayer {

/// A motion file that has been read and is no actor yet.
struct MotionFile
{
    std::string text;
    LoadedActor actor;  ///< not dressed
};

/// Reads motion files before the module does, so that a broken one is reported with its place and costs no
/// actor.
class MotionFileReader
{
public:
    /// @param reading how skeletons from elsewhere are read: the words of KivReader::profileOptionsFrom.
    MotionFileReader(Console& console, const std::string& reading);

    /// Tries the profile's table if there is one. One that cannot be read is reported, and no motion is read.
    bool readProfileTable();

    /// @return nothing where the file cannot be read, which is reported. On any thread.
    std::optional<MotionFile> read(unsigned index, const std::string& file, const std::string& name) const;

private:
    bool readMotion(const std::string& file, std::string& text, LoadedActor& actor) const;

    Console& m_console;
    KivReader::ProfileOptions m_profile;
    bool m_tableThere = true;
};

}  // namespace KivPlayer
