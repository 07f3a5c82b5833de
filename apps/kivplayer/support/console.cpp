#include "apps/kivplayer/support/console.h"

#include <ostream>

#include "apps/kivplayer/support/printable.h"

namespace KivPlayer {

std::string placeText(const Complaint& complaint)
{
    std::string text = complaint.file;
    if (complaint.line > 0)
        text += ":" + std::to_string(complaint.line);
    if (complaint.line > 0 && complaint.column > 0)
        text += ":" + std::to_string(complaint.column);
    return text;
}

std::string complaintLine(const Complaint& complaint, const std::string& kind)
{
    const std::string place = complaint.file.empty() ? std::string() : placeText(complaint) + ": ";
    return "kivplayer: " + place + kind + ": " + complaint.message;
}

void Console::error(const Complaint& complaint)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_errors.push_back(complaint);
    m_stream << printable(complaintLine(complaint, "error")) << std::endl;
}

std::vector<std::string> Console::errorLines() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::string> lines;
    for (const Complaint& complaint : m_errors)
        lines.push_back((complaint.file.empty() ? "" : placeText(complaint) + ": ") + complaint.message);
    return lines;
}

void Console::warning(const Complaint& complaint)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_loudness != Loudness::Quiet)
        m_stream << printable(complaintLine(complaint, "warning")) << std::endl;
}

void Console::say(const std::string& text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_loudness != Loudness::Quiet)
        m_stream << printable(text) << std::flush;
}

void Console::note(const std::string& text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_loudness == Loudness::Verbose)
        m_stream << "kivplayer: " << printable(text) << std::endl;
}

}  // namespace KivPlayer
