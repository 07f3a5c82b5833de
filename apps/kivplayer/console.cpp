#include "console.h"

#include <ostream>

namespace KivPlayer {

std::string complaintLine(const Complaint& complaint, const std::string& kind)
{
    std::string text = "kivplayer: ";
    if (!complaint.file.empty()) {
        text += complaint.file;
        if (complaint.line > 0)
            text += ":" + std::to_string(complaint.line);
        if (complaint.line > 0 && complaint.column > 0)
            text += ":" + std::to_string(complaint.column);
        text += ": ";
    }
    return text + kind + ": " + complaint.message;
}

void Console::error(const Complaint& complaint)
{
    m_errors.push_back(complaint);
    m_stream << complaintLine(complaint, "error") << std::endl;
}

void Console::warning(const Complaint& complaint)
{
    if (m_loudness != Loudness::Quiet)
        m_stream << complaintLine(complaint, "warning") << std::endl;
}

void Console::note(const std::string& text)
{
    if (m_loudness == Loudness::Verbose)
        m_stream << "kivplayer: " << text << std::endl;
}

}  // namespace KivPlayer
