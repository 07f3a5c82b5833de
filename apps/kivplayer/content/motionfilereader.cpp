#include "apps/kivplayer/content/motionfilereader.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <istream>
#include <system_error>
#include <utility>
#include <vector>

#include "apps/kivplayer/support/numbers.h"

namespace KivPlayer {

namespace {

/// In large pieces, since pipes do not tell how long they are.
bool readAll(std::istream& stream, std::string& text)
{
    constexpr std::size_t kPiece = 1 << 20;
    std::size_t length = 0;
    do {
        text.resize(length + kPiece);
        stream.read(text.data() + length, kPiece);
        length += static_cast<std::size_t>(stream.gcount());
    } while (stream);
    text.resize(length);
    return !stream.bad();
}

/// The reader's words about a table, "FILE, line 3: reason" or "FILE: reason", with the place taken out.
Diagnostic tableDiagnostic(const std::string& file, const std::string& said)
{
    const std::string before = file + ", line ";
    const std::size_t end = said.find(": ", before.size());
    if (said.compare(0, before.size(), before) == 0 && end != std::string::npos) {
        const auto line = parseInteger(said.substr(before.size(), end - before.size()));
        if (line && *line > 0)
            return {file, static_cast<std::size_t>(*line), 0, said.substr(end + 2)};
    }
    const bool named = said.compare(0, file.size() + 2, file + ": ") == 0;
    return {file, 0, 0, named ? said.substr(file.size() + 2) : said};
}

}  // namespace

MotionFileReader::MotionFileReader(Console& console, const std::string& reading) : m_console(console)
{
    std::string ignored;
    m_profile = KivReader::profileOptionsFrom(reading, ignored);
}

bool MotionFileReader::readProfileTable()
{
    KivReader::MotionDocument anything;
    anything.joints.emplace_back();
    try {
        KivReader::profileMotion(anything, m_profile);
        m_tableThere = true;
    } catch (const std::exception& problem) {
        m_console.error(tableDiagnostic(m_profile.tableFile, problem.what()));
        m_tableThere = false;
    }
    return m_tableThere;
}

bool MotionFileReader::readMotion(const std::string& file, std::string& text, LoadedActor& actor) const
{
    std::error_code problem;
    if (std::filesystem::is_directory(file, problem)) {
        m_console.error({file, 0, 0, "is a folder; expected a motion file"});
        return false;
    }
    std::ifstream stream(file, std::ios::binary);
    const bool read = stream && readAll(stream, text);
    if (!read) {
        m_console.error(
            {file, 0, 0, std::filesystem::exists(file, problem) ? "cannot be read" : "no such file"});
        return false;
    }
    KivReader::MotionReading reading = KivReader::readMotionDocument(text);
    if (!reading.document) {
        m_console.error({file, reading.error.line, reading.error.column, reading.error.message});
        return false;
    }
    actor.document = std::move(*reading.document);
    for (const KivReader::Diagnostic& warning : actor.document.warnings)
        m_console.warning({file, warning.line, warning.column, warning.message});
    try {
        actor.profile = KivReader::profileMotion(actor.document, m_profile);
    } catch (const std::exception& refusal) {
        m_console.error({file, 0, 0, refusal.what()});
        return false;
    }
    actor.isPerson = actor.profile.isHumanoid || m_profile.use == KivReader::ProfileOptions::Use::Off;
    if (!actor.isPerson)
        m_console.failure({file, 0, 0, notAPerson(actor.profile) + "; its skeleton is shown undressed"});
    for (const std::string& warning : actor.profile.warnings)
        m_console.warning({file, 0, 0, warning});
    for (const std::string& warning : actor.profile.ambiguous)
        m_console.warning({file, 0, 0, warning});
    actor.document.values = std::vector<float>();
    return true;
}

std::optional<MotionFile> MotionFileReader::read(unsigned index, const std::string& file,
                                                 const std::string& name) const
{
    MotionFile motion;
    if (!m_tableThere || !readMotion(file, motion.text, motion.actor))
        return std::nullopt;
    motion.actor.index = index;
    motion.actor.file = file;
    motion.actor.name = name;
    return motion;
}

}  // namespace KivPlayer
