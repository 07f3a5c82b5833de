#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

#include "apps/kivplayer/support/platform/interruption.h"

namespace KivPlayer {

/// A file that is there whole or not at all: written as NAME.part beside its goal and renamed once it is
/// complete; what is not put in place is removed, also when the program is interrupted. Missing folders are
/// made. Devices and pipes are written as they are.
class AtomicFile
{
public:
    explicit AtomicFile(const std::string& goal);
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Where to write.
    const std::string& temporary() const { return m_temporary; }

    /// Makes the temporary file, empty.
    /// @return why not; empty on success.
    std::string begin();
    /// Gives the file its name. @return why not; empty on success.
    std::string putInPlace();

private:
    std::string m_goal;
    std::string m_temporary;
    bool m_renamed;                              ///< at the end
    std::optional<UnfinishedFile> m_unfinished;  ///< from its beginning until it is put in place
};

/// Writes a whole file at once. Writing answers whether it went well.
/// @return what went wrong; empty on success.
std::string writeAtomically(const std::string& file, const std::function<bool(std::ostream&)>& writing);

}  // namespace KivPlayer
