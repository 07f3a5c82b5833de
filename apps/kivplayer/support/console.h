#pragma once

#include <iosfwd>
#include <mutex>
#include <string>
#include <vector>

#include "KivReader/motiondocument.h"

namespace KivPlayer {

/// Something that went wrong, and where.
struct Complaint
{
    std::string file;
    std::size_t line = 0;  ///< 0: about the file as a whole
    std::size_t column = 0;
    std::string message;
};

/// "file:line:column", as far as it is known.
std::string placeText(const Complaint& complaint);

/// "kivplayer: file:line:column: error: message"
std::string complaintLine(const Complaint& complaint, const std::string& kind);

/// What the program says beside its output, a line each, on stderr. Remembers the errors. Lines may come from
/// any thread; the errors are read while nobody else speaks.
class Console
{
public:
    enum class Loudness
    {
        Quiet,
        Normal,
        Verbose
    };

    Console(std::ostream& stream, Loudness loudness) : m_stream(stream), m_loudness(loudness) {}

    void error(const Complaint& complaint);
    void warning(const Complaint& complaint);
    /// Whole lines that are meant for everybody who has not asked for quiet.
    void say(const std::string& text);
    void note(const std::string& text);

    bool isQuiet() const { return m_loudness == Loudness::Quiet; }
    std::ostream& stream() { return m_stream; }
    const std::vector<Complaint>& errors() const { return m_errors; }
    /// The same as lines for people, while others may speak.
    std::vector<std::string> errorLines() const;

private:
    mutable std::mutex m_mutex;
    std::ostream& m_stream;
    Loudness m_loudness;
    std::vector<Complaint> m_errors;
};

}  // namespace KivPlayer
