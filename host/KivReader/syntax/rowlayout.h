#pragma once

#include <cstddef>
#include <optional>

#include "host/KivReader/syntax/parseerror.h"

namespace KivReader {

/// Judges from the number of values on each line whether the lines make whole rows. Usually a line is a row;
/// a line may also hold several rows, or a row may go over several lines, as long as rows end at line ends
/// and the total is what the text declares. Only the text's end may cut the last row short.
class RowLayout
{
public:
    explicit RowLayout(std::size_t columns) : m_columns(columns) {}

    /// A line with values on it. Throws ParseError where the lines so far can make no rows.
    void addLine(std::size_t offset, std::size_t values);
    /// Behind the values of the line that was added last another one begins, which the text's end cuts.
    void continueLine(std::size_t offset, std::size_t values);

    std::size_t rows() const { return m_rows; }
    std::size_t pendingValues() const { return m_pending; }
    /// Where the unfinished row begins; what is asked for only where there is one.
    std::size_t pendingOffset() const { return m_pendingOffset; }
    /// The first line that is not one row, an unfinished last row left aside: why the lines may not be rows
    /// at all.
    const std::optional<ParseError>& irregularity() const { return m_irregularity; }

private:
    ParseError unevenLine(std::size_t offset, std::size_t values) const;

    std::size_t m_columns;
    std::size_t m_rows = 0;
    std::size_t m_pending = 0;  ///< values of the row that is not complete yet
    std::size_t m_pendingOffset = 0;
    std::size_t m_pendingFirstLine = 0;     ///< values on the line where it began
    bool m_pendingBeganBehindARow = false;  ///< on one line with the end of another row
    std::optional<ParseError> m_irregularity;
};

}  // namespace KivReader
