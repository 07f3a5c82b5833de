#include "apps/kivplayer/support/progress.h"

#include <algorithm>
#include <cstdlib>
#include <ostream>
#include <string_view>

#include "apps/kivplayer/support/printable.h"

#if defined(_WIN32)
#include <io.h>
#define KIV_ISATTY _isatty
#else
#include <unistd.h>
#define KIV_ISATTY isatty
#endif

namespace KivPlayer {

Progress::Style Progress::styleFor(int descriptor, bool quiet)
{
    if (quiet)
        return Style::Silent;
    const char* terminal = std::getenv("TERM");
    const bool dumb = terminal && std::string_view(terminal) == "dumb";
    return KIV_ISATTY(descriptor) && !dumb ? Style::Terminal : Style::Lines;
}

Progress::Progress(std::ostream& stream, Style style, std::string job, unsigned long long total,
                   std::chrono::milliseconds patience, Unit unit)
    : m_stream(stream),
      m_style(style),
      m_job(printable(job)),
      m_total(std::max(1ULL, total)),
      m_speaksFrom(std::chrono::steady_clock::now() + patience),
      m_unit(unit)
{}

Progress::~Progress()
{
    if (m_lineOpen)
        m_stream << std::endl;
}

void Progress::done(unsigned long long count)
{
    if (m_style == Style::Silent || std::chrono::steady_clock::now() < m_speaksFrom)
        return;
    const auto percent = static_cast<unsigned>(std::min(count, m_total) * 100 / m_total);
    if (m_style == Style::Terminal) {
        // What another line has left behind it is wiped away.
        m_stream << "\r" << m_job << " " << count / m_unit.size << "/" << m_total / m_unit.size
                 << (*m_unit.name ? " " : "") << m_unit.name << " (" << percent << " %)\x1b[K" << std::flush;
        m_lineOpen = true;
    } else if (m_style == Style::Lines && percent / 10 > m_shown / 10) {
        m_stream << "kivplayer: " << m_job << " " << percent << " %" << std::endl;
    }
    m_shown = percent;
}

}  // namespace KivPlayer
