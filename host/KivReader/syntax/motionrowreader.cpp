#include "host/KivReader/syntax/motionrowreader.h"

#include <algorithm>

#include "host/KivReader/syntax/numbertext.h"
#include "host/KivReader/syntax/readingprogress.h"
#include "host/KivReader/syntax/textcursor.h"

namespace KivReader {

namespace {

const char* endOfToken(const char* at, const char* end)
{
    return std::find_if(at, end, isSpace);
}

}  // namespace

MotionRowReader::MotionRowReader(std::string_view text, std::size_t columns, std::uint64_t declaredFrames)
    : m_begin(text.data()),
      m_end(text.data() + text.size()),
      m_columns(columns),
      m_declaredFrames(declaredFrames),
      m_layout(columns)
{}

/// Whether the text stops at `at` in the middle of a number: everything up to the text's very end is the
/// beginning of one, like "-" or "1.5e-".
bool MotionRowReader::endsInsideANumber(const char* at) const
{
    const auto skipDigits = [this](const char* from) {
        return std::find_if(from, m_end, [](char byte) { return byte < '0' || byte > '9'; });
    };
    if (at != m_end && (*at == '-' || *at == '+'))
        ++at;
    const char* const digits = at;
    at = skipDigits(at);
    if (at != m_end && *at == '.')
        at = skipDigits(at + 1);
    if (at == m_end)
        return true;
    if (at == digits || (*at != 'e' && *at != 'E'))
        return false;
    ++at;
    if (at != m_end && (*at == '-' || *at == '+'))
        ++at;
    return at == m_end;
}

/// Appends the values from here to the end of the line.
const char* MotionRowReader::readLine(const char* at)
{
    while (at != m_end && !isLineEnd(*at)) {
        if (isBlank(*at)) {
            ++at;
            continue;
        }
        float value = 0.0f;
        const char* next = readNumber(at, m_end, value);
        if (next == nullptr) {
            m_lastNumberIsCut = endsInsideANumber(at);
            if (m_lastNumberIsCut)
                return m_end;
            const char* tokenEnd = endOfToken(at, m_end);
            throw notANumber(static_cast<std::size_t>(at - m_begin),
                             std::string_view(at, static_cast<std::size_t>(tokenEnd - at)));
        }
        m_values.push_back(value);
        at = next;
    }
    return at;
}

void MotionRowReader::read(std::size_t offset)
{
    const char* at = m_begin + offset;
    // A value takes two bytes of text at least.
    const std::size_t maxRows =
        m_columns > 0 ? (static_cast<std::size_t>(m_end - at) / 2 + 1) / m_columns : 0;
    m_values.reserve(static_cast<std::size_t>(std::min<std::uint64_t>(m_declaredFrames, maxRows)) *
                     m_columns);
    std::size_t reported = 0;
    while (true) {
        at = std::find_if_not(at, m_end, isSpace);
        if (at == m_end)
            break;
        const auto lineOffset = static_cast<std::size_t>(at - m_begin);
        if (lineOffset >= reported + kBytesBetweenReports) {
            reported = lineOffset;
            reportReading(lineOffset, static_cast<std::size_t>(m_end - m_begin));
        }
        const std::size_t before = m_values.size();
        at = readLine(at);
        const std::size_t values = m_values.size() - before;
        if (values > 0)
            m_layout.addLine(lineOffset, values);
        if (values > 0 && m_lastNumberIsCut)
            m_layout.continueLine(lineOffset, values);
        m_lastLineOffset = lineOffset;
    }
    finishLastRow();
}

/// A last row that is cut short is dropped. Rows that are no lines must be as many as the text declares, the
/// cut one counted: else nothing says where they begin and end.
void MotionRowReader::finishLastRow()
{
    m_valuesOfCutRow = m_layout.pendingValues();
    m_lastRowIsCut = m_valuesOfCutRow > 0 || m_lastNumberIsCut;
    m_cutRowOffset = m_valuesOfCutRow > 0 ? m_layout.pendingOffset() : m_lastLineOffset;
    const std::size_t begunRows = m_layout.rows() + (m_lastRowIsCut ? 1 : 0);
    if (m_layout.irregularity() && begunRows != m_declaredFrames)
        throw *m_layout.irregularity();
    m_values.resize(m_layout.rows() * m_columns);
    if (m_values.capacity() > 2 * m_values.size())
        m_values.shrink_to_fit();
}

}  // namespace KivReader
