#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "KivReader/readinglistener.h"
#include "apps/kivplayer/support/console.h"
#include "apps/kivplayer/support/progress.h"

namespace KivPlayer {

/// Prints the progress of loading motion files: of all of them, and of a single one that takes long, which is
/// read by the player first, then by the module, which dresses it. Lines are printed by the thread that
/// reads, while the thread of the frame loop waits.
class LoadingProgress
{
public:
    LoadingProgress(Console& console, std::size_t files, Progress::Style style,
                    std::chrono::milliseconds patience = Progress::kPatience);

    /// Before a file is loaded, and afterwards.
    void begin(const std::string& file);
    void end();

private:
    void beginReading(const char* step);
    void ended();

    Console& m_console;
    Progress::Style m_style;
    std::chrono::milliseconds m_patience;
    Progress m_all;
    std::size_t m_files = 0;  ///< loaded
    std::string m_file;
    bool m_isDressed = false;  ///< being dressed, no longer only read
    std::unique_ptr<Progress> m_spReading;
    KivReader::ReadingListener m_listener;
};

}  // namespace KivPlayer
