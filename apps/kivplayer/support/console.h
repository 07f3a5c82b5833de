#pragma once

#include <iosfwd>
#include <mutex>
#include <string>
#include <vector>

#include "KivReader/motiondocument.h"

namespace KivPlayer {

/// Something that went wrong, and where.
struct Diagnostic
{
    std::string file;
    std::size_t line = 0;  ///< 0: about the file as a whole
    std::size_t column = 0;
    std::string message;
};

/// "file:line:column", as far as it is known.
std::string placeText(const Diagnostic& diagnostic);

/// "kivplayer: file:line:column: error: message"
std::string diagnosticLine(const Diagnostic& diagnostic, const std::string& kind);

/// What the program says beside its output, a line each, on stderr. Remembers the errors. Lines may come from
/// any thread; the errors are read while nobody else speaks.
class Console
{
public:
    enum class Verbosity
    {
        Quiet,
        Normal,
        Verbose
    };

    Console(std::ostream& stream, Verbosity verbosity) : m_stream(stream), m_verbosity(verbosity) {}

    void error(const Diagnostic& diagnostic);
    void warning(const Diagnostic& diagnostic);
    /// Whole lines that are meant for everybody who has not asked for quiet.
    void say(const std::string& text);
    void note(const std::string& text);

    bool isQuiet() const { return m_verbosity == Verbosity::Quiet; }
    std::ostream& stream() { return m_stream; }
    const std::vector<Diagnostic>& errors() const { return m_errors; }
    /// The same as lines for people, while others may speak.
    std::vector<std::string> errorLines() const;

private:
    mutable std::mutex m_mutex;
    std::ostream& m_stream;
    Verbosity m_verbosity;
    std::vector<Diagnostic> m_errors;
};

}  // namespace KivPlayer
