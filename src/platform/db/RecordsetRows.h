#pragma once

#include "platform/base/String.h"
#include "platform/db/Driver.h"
#include "platform/db/RowEditor.h"
#include "platform/db/SnapshotStore.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace utility
{

class CDatabase;

/// What is being done to a row until Update.
enum class EEditMode
{
    None,
    AddNew,
    Edit
};

/// The inner side of a recordset: its statement, the rows fetched so far and where it stands in
/// them.
class CRecordsetRows
{
public:
    CRecordsetRows(CDatabase& database, std::unique_ptr<StatementRecord> statement);

    StatementRecord& GetStatement() { return *m_Statement; }

    /// Reads the columns of the executed statement and forgets the rows; the driver's code.
    RETCODE TakeColumns();
    const std::vector<CODBCFieldInfo>& GetColumns() const { return m_Columns; }
    void SetTextLimit(std::size_t column, int units);

    /// Fetches until `count` rows are there or all are; a driver's code, or
    /// AFX_SQL_ERROR_CANCELLED.
    RETCODE Fill(std::int64_t count);
    RETCODE FillAll() { return Fill(INT64_MAX); }

    /// The same, but ends with the first row set for which the time is up.
    RETCODE FillFor(DWORD milliseconds, std::int64_t count);
    bool IsComplete() const { return m_IsComplete; }
    std::int64_t GetCount() const
    {
        return m_Store ? static_cast<std::int64_t>(m_Store->GetRowCount()) : 0;
    }

    bool IsOnRow() const { return Position >= 0 && Position < GetCount(); }
    bool IsDeleted() const
    {
        return IsOnRow() && m_Store->IsDeleted(static_cast<std::size_t>(Position));
    }

    /// The current row's value; NULL where there is no row or it was deleted. The column must be
    /// there.
    CDbValue GetCurrent(std::size_t column) const
    {
        return IsOnRow() && !IsDeleted() ? m_Store->Get(static_cast<std::size_t>(Position), column)
                                         : GetNull(column);
    }
    bool HasCutText() const { return m_Store->HasCutText(static_cast<std::size_t>(Position)); }

    /// Null before the first fetch.
    const CSnapshotStore* GetStore() const { return m_Store.get(); }

    void MarkDeleted() { m_Store->MarkDeleted(static_cast<std::size_t>(Position)); }
    void TakeChanges();

    /// The editor of the one table behind the rows, or null.
    CRowEditor* GetEditor(std::u16string_view sql);

    /// Any thread, while this object lives.
    void Cancel();

    std::int64_t Position = -1; // -1 before the first row, the count behind the last
    EEditMode EditMode = EEditMode::None;
    bool ComparesFields = false;
    std::vector<CRowChange> Changes; // collected by an exchange

private:
    RETCODE Bind();
    RETCODE FillStep();
    CDbValue GetNull(std::size_t column) const;

    CDatabase& m_Database;
    std::unique_ptr<StatementRecord> m_Statement;
    std::vector<CODBCFieldInfo> m_Columns;
    std::vector<CColumnLayout> m_Layouts;
    std::unique_ptr<CSnapshotStore> m_Store; // from the first fetch on
    bool m_IsComplete = false;
    std::atomic<bool> m_IsCancelled = false;
    std::unique_ptr<CRowEditor> m_Editor;
};

} // namespace utility
