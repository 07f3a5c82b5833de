#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "host/KivReader/syntax/rowlayout.h"

namespace KivReader {

/// Reads the rows of a motion into one block in one pass. What the text declares bounds nothing but the first
/// reservation, which the text that is left bounds as well. Throws ParseError.
class MotionRowReader
{
public:
    MotionRowReader(std::string_view text, std::size_t columns, std::uint64_t declaredFrames);

    /// Reads to the end of the text.
    void read(std::size_t offset);

    std::vector<float>& values() { return m_values; }
    std::size_t rows() const { return m_layout.rows(); }

    /// The last row was begun but not finished; it is not among the values.
    bool lastRowIsCut() const { return m_lastRowIsCut; }
    std::size_t cutRowOffset() const { return m_cutRowOffset; }
    std::size_t valuesOfCutRow() const { return m_valuesOfCutRow; }

private:
    const char* readLine(const char* at);
    bool endsInsideANumber(const char* at) const;
    void finishLastRow();

    const char* m_begin;
    const char* m_end;
    std::size_t m_columns;
    std::uint64_t m_declaredFrames;
    std::vector<float> m_values;
    RowLayout m_layout;
    std::size_t m_lastLineOffset = 0;
    std::size_t m_cutRowOffset = 0;
    std::size_t m_valuesOfCutRow = 0;
    bool m_lastNumberIsCut = false;
    bool m_lastRowIsCut = false;
};

}  // namespace KivReader
