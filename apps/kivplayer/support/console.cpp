#include "apps/kivplayer/support/console.h"

#include <ostream>

#include "apps/kivplayer/support/printable.h"

namespace KivPlayer {

std::string placeText(const Diagnostic& diagnostic)
{
    std::string text = diagnostic.file;
    if (diagnostic.line > 0)
        text += ":" + std::to_string(diagnostic.line);
    if (diagnostic.line > 0 && diagnostic.column > 0)
        text += ":" + std::to_string(diagnostic.column);
    return text;
}

std::string diagnosticLine(const Diagnostic& diagnostic, const std::string& kind)
{
    const std::string place = diagnostic.file.empty() ? std::string() : placeText(diagnostic) + ": ";
    return "kivplayer: " + place + kind + ": " + diagnostic.message;
}

void Console::error(const Diagnostic& diagnostic)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_errors.push_back(diagnostic);
    m_hasFailed = true;
    m_stream << printable(diagnosticLine(diagnostic, "error")) << std::endl;
}

std::vector<std::string> Console::errorLines() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::string> lines;
    for (const Diagnostic& diagnostic : m_errors)
        lines.push_back((diagnostic.file.empty() ? "" : placeText(diagnostic) + ": ") + diagnostic.message);
    return lines;
}

void Console::warning(const Diagnostic& diagnostic)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_verbosity != Verbosity::Quiet)
        m_stream << printable(diagnosticLine(diagnostic, "warning")) << std::endl;
}

void Console::failure(const Diagnostic& diagnostic)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_hasFailed = true;
    m_stream << printable(diagnosticLine(diagnostic, "warning")) << std::endl;
}

void Console::say(const std::string& text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_verbosity != Verbosity::Quiet)
        m_stream << printable(text) << std::flush;
}

void Console::note(const std::string& text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_verbosity == Verbosity::Verbose)
        m_stream << "kivplayer: " << printable(text) << std::endl;
}

}  // namespace KivPlayer
