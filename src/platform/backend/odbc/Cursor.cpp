#include "platform/backend/odbc/Cursor.h"

#include "platform/backend/odbc/DriverManager.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::size_t MOST_BUFFER_BYTES = 8 * 1024 * 1024; // of a whole row set
constexpr std::size_t LONG_STEP = 256 * 1024;
constexpr std::size_t DATE_TEXT_SIZE = 64;

SQLPOINTER AsAttribute(SQLULEN value)
{
    return reinterpret_cast<SQLPOINTER>(value);
}

} // namespace

std::size_t COdbcCursor::ChooseRowSet(std::span<const CColumnLayout> layouts,
                                      std::span<const CODBCFieldInfo> columns, bool& mayGrow) const
{
    auto rowSet = static_cast<std::size_t>(m_Quirks.RowSetSize);
    if (!m_Quirks.CanReadInRowSet && std::ranges::any_of(layouts, CColumnBuffer::ReadsWhole))
        rowSet = 1; // a value of any length must be possible to read again
    // A row at a time costs little room, so each text gets all it may need and is never read again.
    mayGrow = rowSet > 1 && m_Quirks.CanReadInRowSet;
    std::size_t bytes = 0;
    for (std::size_t index = 0; index < layouts.size(); ++index)
        bytes +=
            CColumnBuffer::ElementSizeFor(layouts[index], columns[index].m_nPrecision, mayGrow);
    return std::clamp<std::size_t>(MOST_BUFFER_BYTES / std::max<std::size_t>(bytes, 1), 1, rowSet);
}

RETCODE COdbcCursor::Bind(std::span<const CColumnLayout> layouts,
                          std::span<const CODBCFieldInfo> columns)
{
    Unbind();
    bool mayGrow = false;
    m_RowSet = ChooseRowSet(layouts, columns, mayGrow);
    m_Buffers.reserve(layouts.size());
    for (std::size_t index = 0; index < layouts.size(); ++index)
        m_Buffers.emplace_back(layouts[index], m_RowSet, columns[index].m_nPrecision, mayGrow,
                               CDateDoubt(m_Quirks.OddDates, columns[index]));

    ::SQLSetStmtAttr(m_Statement, SQL_ATTR_ROWS_FETCHED_PTR, &m_Fetched, 0);
    RETCODE code = ::SQLSetStmtAttr(m_Statement, SQL_ATTR_ROW_ARRAY_SIZE, AsAttribute(m_RowSet), 0);
    for (std::size_t index = 0; index < m_Buffers.size() && SQL_SUCCEEDED(code); ++index)
    {
        CColumnBuffer& buffer = m_Buffers[index];
        if (buffer.GetCarrier() != 0)
            code =
                ::SQLBindCol(m_Statement, static_cast<SQLUSMALLINT>(index + 1), buffer.GetCarrier(),
                             buffer.GetData(), buffer.GetElementSize(), buffer.GetIndicators());
    }
    return code;
}

void COdbcCursor::Unbind()
{
    ::SQLFreeStmt(m_Statement, SQL_UNBIND);
    m_Buffers.clear();
}

RETCODE COdbcCursor::Fetch(CSnapshotStore& store)
{
    for (CColumnBuffer& buffer : m_Buffers)
        buffer.Preset();
    m_Fetched = 1; // a driver that fetches one at a time need not tell
    const RETCODE code = ::SQLFetch(m_Statement);
    if (!SQL_SUCCEEDED(code))
        return code;
    const std::size_t rows = std::min<std::size_t>(m_Fetched, m_RowSet);
    for (std::size_t index = 0; index < m_Buffers.size(); ++index)
    {
        const RETCODE stored = StoreColumn(index, rows, store);
        if (!SQL_SUCCEEDED(stored))
            return stored;
    }
    store.AddRows(rows);
    return SQL_SUCCESS;
}

RETCODE COdbcCursor::StoreColumn(std::size_t index, std::size_t rows, CSnapshotStore& store)
{
    const CColumnBuffer& buffer = m_Buffers[index];
    CSnapshotColumn& column = store.Column(index);
    for (std::size_t row = 0; row < rows; ++row)
    {
        if (buffer.StoreRow(row, column))
            continue;
        const RETCODE code = Reread(index, row, column);
        if (!SQL_SUCCEEDED(code))
            return code;
    }
    return SQL_SUCCESS;
}

RETCODE COdbcCursor::Reread(std::size_t index, std::size_t row, CSnapshotColumn& column)
{
    if (m_RowSet > 1)
    {
        const RETCODE code = ::SQLSetPos(m_Statement, row + 1, SQL_POSITION, SQL_LOCK_NO_CHANGE);
        if (!SQL_SUCCEEDED(code))
            return code;
    }
    const CColumnBuffer& buffer = m_Buffers[index];
    bool isWhole = false;
    if (buffer.IsDate())
    {
        const RETCODE code = ReadLongBytes(index, SQL_C_CHAR, DATE_TEXT_SIZE, isWhole);
        if (SQL_SUCCEEDED(code))
            buffer.StoreDoubted(row, {m_Long.data(), m_Long.size()}, column);
        return code;
    }
    const RETCODE code = ReadLongBytes(index, buffer.GetCarrier(), buffer.GetFullSize(), isWhole);
    if (SQL_SUCCEEDED(code))
        buffer.StoreLong({m_Long.data(), m_Long.size()}, isWhole, column);
    return code;
}

/// `wanted` bytes with their terminator or, if it is 0, all there are.
RETCODE COdbcCursor::ReadLongBytes(std::size_t index, short carrier, std::size_t wanted,
                                   bool& isWhole)
{
    const std::size_t terminator = carrier == SQL_C_CHAR ? 1 : 0;
    m_Long.clear();
    for (;;)
    {
        const std::size_t start = m_Long.size();
        const std::size_t step = wanted > 0 ? wanted : LONG_STEP;
        m_Long.resize(start + step);
        SQLLEN left = 0;
        const RETCODE code =
            ::SQLGetData(m_Statement, static_cast<SQLUSMALLINT>(index + 1), carrier,
                         m_Long.data() + start, static_cast<SQLLEN>(step), &left);
        isWhole = code == SQL_NO_DATA ||
                  (left >= 0 && static_cast<std::size_t>(left) + terminator <= step);
        const std::size_t got = code == SQL_NO_DATA || left == SQL_NULL_DATA ? 0
                                : isWhole ? static_cast<std::size_t>(left)
                                          : step - terminator;
        m_Long.resize(start + got);
        if (code == SQL_NO_DATA)
            return SQL_SUCCESS;
        if (!SQL_SUCCEEDED(code) || isWhole || wanted > 0)
            return code;
    }
}

} // namespace utility
