#pragma once

#include <atomic>
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

/// Messages for people, a line each, on stderr. Keeps the errors. Lines may be printed from any thread; the
/// errors are read while no other thread prints.
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
    /// A warning that --quiet does not silence and after which the program exits as after an error: what was
    /// asked for could not be done as asked.
    void failure(const Diagnostic& diagnostic);
    /// Whole lines, printed unless --quiet is given.
    void say(const std::string& text);
    void note(const std::string& text);

    bool isQuiet() const { return m_verbosity == Verbosity::Quiet; }
    std::ostream& stream() { return m_stream; }
    const std::vector<Diagnostic>& errors() const { return m_errors; }
    /// Whether there was an error or a failure.
    bool hasFailed() const { return m_hasFailed; }
    /// The same as lines for people, while others may speak.
    std::vector<std::string> errorLines() const;

private:
    mutable std::mutex m_mutex;
    std::ostream& m_stream;
    Verbosity m_verbosity;
    std::vector<Diagnostic> m_errors;
    std::atomic<bool> m_hasFailed{false};
};

}  // namespace KivPlayer
