#include "host/KivReader/syntax/locationfinder.h"

#include <algorithm>
#include <utility>

#include "host/KivReader/syntax/textcursor.h"

namespace KivReader {

void LocationFinder::advanceTo(std::size_t offset)
{
    if (offset < m_offset) {
        m_offset = 0;
        m_line = 1;
        m_lineStart = 0;
    }
    const std::size_t end = std::min(offset, m_text.size());
    const std::string_view part = m_text.substr(m_offset, end - m_offset);
    if (part.find('\r') == std::string_view::npos) {
        advanceOverLineFeeds(part);
        return;
    }
    for (; m_offset < end; ++m_offset) {
        if (endsLine(m_text, m_offset)) {
            ++m_line;
            m_lineStart = m_offset + 1;
        }
    }
}

/// The usual case, in which lines end in one way only.
void LocationFinder::advanceOverLineFeeds(std::string_view part)
{
    for (std::size_t at = part.find('\n'); at != std::string_view::npos; at = part.find('\n', at + 1)) {
        ++m_line;
        m_lineStart = m_offset + at + 1;
    }
    m_offset += part.size();
}

Diagnostic LocationFinder::at(std::size_t offset, std::string message)
{
    advanceTo(offset);
    return {m_line, m_offset - m_lineStart + 1, std::move(message)};
}

}  // namespace KivReader
