#include "apps/kivplayer/content/loadingprogress.h"

#include <filesystem>

namespace KivPlayer {

namespace {

constexpr Progress::Unit kMegabytes{"MB", 1000000};

}  // namespace

LoadingProgress::LoadingProgress(Console& console, std::size_t files, Progress::Style style,
                                 std::chrono::milliseconds patience)
    : m_console(console),
      m_style(style),
      m_patience(patience),
      // The progress of a single file is printed in bytes.
      m_all(console.stream(), files > 1 ? style : Progress::Style::Silent, "motions read", files, patience),
      m_listener(
          [this](std::size_t bytes, std::size_t) {
              if (m_spReading)
                  m_spReading->done(bytes);
          },
          [this] { ended(); })
{}

void LoadingProgress::begin(const std::string& file)
{
    m_file = file;
    m_isDressed = false;
    beginReading("reading ");
}

void LoadingProgress::beginReading(const char* step)
{
    std::error_code unknown;
    const std::uintmax_t size = std::filesystem::file_size(m_file, unknown);
    if (!unknown)
        m_spReading = std::make_unique<Progress>(m_console.stream(), m_style, step + m_file, size, m_patience,
                                                 kMegabytes);
}

/// Lines that are said of the file behind its reading stand on their own.
void LoadingProgress::ended()
{
    m_spReading.reset();
    if (!m_isDressed)
        beginReading("dressing ");
    m_isDressed = true;
}

void LoadingProgress::end()
{
    m_spReading.reset();
    m_all.done(++m_files);
}

}  // namespace KivPlayer
