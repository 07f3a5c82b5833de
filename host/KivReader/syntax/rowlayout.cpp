#include "host/KivReader/syntax/rowlayout.h"

namespace KivReader {

ParseError RowLayout::unevenLine(std::size_t offset, std::size_t values) const
{
    return {offset, std::to_string(values) + " values, expected " + std::to_string(m_columns)};
}

void RowLayout::addLine(std::size_t offset, std::size_t values)
{
    if (m_pending == 0 && values == m_columns) {
        ++m_rows;
        return;
    }
    if (m_columns == 0)
        throw unevenLine(offset, values);
    if (m_pending > 0) {
        if (!m_irregularity)
            m_irregularity = unevenLine(m_pendingOffset, m_pendingFirstLine);
        if (m_pendingBeganBehindARow || m_pending + values > m_columns)
            throw *m_irregularity;
        m_pending = (m_pending + values) % m_columns;
        m_rows += m_pending == 0 ? 1 : 0;
        return;
    }
    m_pendingBeganBehindARow = values > m_columns;
    if (m_pendingBeganBehindARow && !m_irregularity)
        m_irregularity = unevenLine(offset, values);
    m_rows += values / m_columns;
    m_pending = values % m_columns;
    m_pendingOffset = offset;
    m_pendingFirstLine = values;
}

void RowLayout::continueLine(std::size_t offset, std::size_t values)
{
    if (m_pending == 0 && !m_irregularity)
        m_irregularity = unevenLine(offset, values + 1);
}

}  // namespace KivReader
