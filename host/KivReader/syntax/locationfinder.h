#pragma once

#include <cstddef>
#include <string_view>

#include "KivReader/motiondocument.h"

namespace KivReader {

/// Turns offsets into lines and columns. A line ends at LF, CR LF or CR. Asked for rising offsets it goes
/// through the text once in all.
class LocationFinder
{
public:
    explicit LocationFinder(std::string_view text) : m_text(text) {}

    Diagnostic at(std::size_t offset, std::string message);

private:
    void advanceTo(std::size_t offset);
    void advanceOverLineFeeds(std::string_view part);

    std::string_view m_text;
    std::size_t m_offset = 0;
    std::size_t m_line = 1;
    std::size_t m_lineStart = 0;
};

}  // namespace KivReader
