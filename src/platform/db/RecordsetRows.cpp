#include "platform/db/RecordsetRows.h"

#include "platform/db/DBException.h"
#include "platform/db/SelectText.h"
#include "platform/system/Clock.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::uint32_t LEAST_TEXT_LIMIT = 512;
constexpr std::uint32_t MOST_TEXT_LIMIT = 8196;

} // namespace

CRecordsetRows::CRecordsetRows(CDatabase& database, std::unique_ptr<StatementRecord> statement)
    : m_Database(database),
      m_Statement(std::move(statement))
{
}

RETCODE CRecordsetRows::TakeColumns()
{
    m_Store.reset();
    m_Editor.reset();
    m_IsComplete = false;
    m_IsCancelled = false;
    Position = -1;
    EditMode = EEditMode::None;
    const RETCODE code = m_Statement->DescribeColumns(m_Columns);
    m_Layouts.clear();
    for (const CODBCFieldInfo& column : m_Columns)
        m_Layouts.push_back(
            {ValueKindOf(column.m_nSQLType),
             static_cast<int>(std::clamp(column.m_nPrecision, LEAST_TEXT_LIMIT, MOST_TEXT_LIMIT))});
    return code;
}

void CRecordsetRows::SetTextLimit(std::size_t column, int units)
{
    if (column < m_Layouts.size())
        m_Layouts[column].TextLimit = std::max(units, 1);
}

RETCODE CRecordsetRows::Bind()
{
    std::vector<EValueKind> kinds;
    for (const CColumnLayout& layout : m_Layouts)
        kinds.push_back(layout.Kind);
    const RETCODE code = m_Statement->BindColumns(m_Layouts);
    if (code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO)
        m_Store = std::make_unique<CSnapshotStore>(kinds);
    return code;
}

RETCODE CRecordsetRows::Fill(std::int64_t count)
{
    RETCODE code = SQL_SUCCESS;
    while (code == SQL_SUCCESS && !m_IsComplete && GetCount() < count)
        code = FillStep();
    return code;
}

RETCODE CRecordsetRows::FillFor(DWORD milliseconds, std::int64_t count)
{
    const std::uint64_t start = GetTickCount();
    RETCODE code = SQL_SUCCESS;
    do
        code = FillStep();
    while (code == SQL_SUCCESS && !m_IsComplete && GetCount() < count &&
           GetTickCount() - start < milliseconds);
    return code;
}

/// The next row set; the first of them binds the columns.
RETCODE CRecordsetRows::FillStep()
{
    if (!m_Store)
    {
        const RETCODE code = Bind();
        if (!m_Store)
            return code;
    }
    if (m_IsCancelled &&
        m_IsCancelled.exchange(false)) // the look alone costs a row next to nothing
        return AFX_SQL_ERROR_CANCELLED;
    const RETCODE code = m_Statement->FetchRows(*m_Store);
    if (code == SQL_NO_DATA)
    {
        m_IsComplete = true;
        m_Statement->CloseCursor(); // what it holds in the source is free again
    }
    return code == SQL_NO_DATA || code == SQL_SUCCESS_WITH_INFO ? SQL_SUCCESS : code;
}

CDbValue CRecordsetRows::GetNull(std::size_t column) const
{
    CDbValue none;
    none.Kind = m_Layouts[column].Kind;
    return none;
}

void CRecordsetRows::TakeChanges()
{
    for (const CRowChange& change : Changes)
        m_Store->Column(change.Column)
            .Replace(static_cast<std::size_t>(Position), change.GetValue());
}

CRowEditor* CRecordsetRows::GetEditor(std::u16string_view sql)
{
    if (!m_Editor)
    {
        const CString table = FindEditableTable(sql);
        if (table.IsEmpty())
            return nullptr;
        m_Editor = std::make_unique<CRowEditor>(m_Database, table, m_Columns);
    }
    return m_Editor.get();
}

void CRecordsetRows::Cancel()
{
    m_IsCancelled = true;
    m_Statement->Cancel();
}

} // namespace utility
