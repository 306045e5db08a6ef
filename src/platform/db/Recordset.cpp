#include "platform/db/Recordset.h"

#include "platform/base/CaseFold.h"
#include "platform/base/object/InvalidArgException.h"
#include "platform/db/DBException.h"
#include "platform/db/DBRefusal.h"
#include "platform/db/Database.h"
#include "platform/db/FieldExchange.h"
#include "platform/db/RecordsetRows.h"
#include "platform/db/SelectText.h"
#include "platform/db/ValueText.h"

#include <algorithm>

namespace utility
{

IMPLEMENT_DYNAMIC(CRecordset, CObject)

CRecordset::CRecordset(CDatabase* database) : m_pDatabase(database) {}

CRecordset::~CRecordset()
{
    ReleaseRows();
}

BOOL CRecordset::Open(UINT openType, LPCWSTR sql, DWORD options)
{
    if (IsOpen())
        ThrowRefusal(AFX_SQL_ERROR_ALREADY_OPEN);
    if (openType == AFX_DB_USE_DEFAULT_TYPE)
        openType = m_nDefaultType;
    if (openType != snapshot)
        ThrowRefusal(AFX_SQL_ERROR_NOT_OFFERED, u"a recordset that is no snapshot");
    if ((options & useMultiRowFetch) != 0)
        ThrowRefusal(AFX_SQL_ERROR_NOT_OFFERED, u"fields that take many rows at once");
    if (!HasOpenDatabase())
        return FALSE;

    const CString given(sql);
    m_strSQL = CompleteSelect(given.IsEmpty() ? GetDefaultSQL().View() : given.View());
    m_dwOptions = options;
    MakeRows();
    m_pDatabase->m_OpenRecordsets.push_back(this);
    try
    {
        RunQuery();
    }
    catch (...)
    {
        ReleaseRows(); // a set that could not be opened is closed
        throw;
    }
    return TRUE;
}

void CRecordset::Close()
{
    ReleaseRows();
    if (m_OwnDatabase)
    {
        m_OwnDatabase.reset();
        m_pDatabase = nullptr;
    }
}

BOOL CRecordset::Requery()
{
    if (!IsOpen())
        return FALSE;
    MakeRows();
    RunQuery();
    return TRUE;
}

void CRecordset::Cancel()
{
    const std::lock_guard lock(m_RowsLock);
    if (m_Rows)
        m_Rows->Cancel();
}

CString CRecordset::GetDefaultSQL()
{
    return {};
}

CString CRecordset::GetDefaultConnect()
{
    return {};
}

void CRecordset::PreBindFields() {}

void CRecordset::DoFieldExchange(CFieldExchange* /*exchange*/) {}

void CRecordset::DoBulkFieldExchange(CFieldExchange* /*exchange*/) {}

void CRecordset::ThrowDBException(RETCODE code, HSTMT statement)
{
    AfxThrowDBException(code, m_pDatabase, statement ? statement : m_hstmt);
}

void CRecordset::GetODBCFieldInfo(LPCWSTR name, CODBCFieldInfo& info) const
{
    const std::u16string_view wanted(name ? name : u"");
    if (m_Rows)
        for (const CODBCFieldInfo& column : m_Rows->GetColumns())
            if (EqualNoCase(column.m_strName.View(), wanted))
            {
                info = column;
                return;
            }
    AfxThrowInvalidArgException();
}

void CRecordset::GetODBCFieldInfo(short index, CODBCFieldInfo& info) const
{
    if (!m_Rows || index < 0 || static_cast<std::size_t>(index) >= m_Rows->GetColumns().size())
        AfxThrowInvalidArgException();
    info = m_Rows->GetColumns()[static_cast<std::size_t>(index)];
}

CString CRecordset::GetColumnText(short column) const
{
    if (!m_Rows || column < 0 || static_cast<std::size_t>(column) >= m_Rows->GetColumns().size())
        AfxThrowInvalidArgException();
    return FormatValue(m_Rows->GetCurrent(static_cast<std::size_t>(column)));
}

bool CRecordset::HasOpenDatabase()
{
    if (!m_pDatabase)
    {
        const CString connect = GetDefaultConnect();
        if (connect.IsEmpty())
            return false;
        m_OwnDatabase = std::make_unique<CDatabase>();
        m_OwnDatabase->Open(nullptr, FALSE, FALSE, connect);
        m_pDatabase = m_OwnDatabase.get();
    }
    return m_pDatabase->IsOpen() != FALSE;
}

/// A new statement for each run, so that nothing of the last one lingers.
void CRecordset::MakeRows()
{
    ReplaceRows(nullptr); // its cursor goes before the next one comes
    std::unique_ptr<StatementRecord> statement =
        m_pDatabase->m_hdbc->MakeStatement(m_pDatabase->GetQueryTimeout());
    if (!statement)
        ThrowDBException(SQL_ERROR);
    ReplaceRows(std::make_unique<CRecordsetRows>(*m_pDatabase, std::move(statement)));
}

/// The former rows go behind the lock: to free a statement may take a while.
void CRecordset::ReplaceRows(std::unique_ptr<CRecordsetRows> rows)
{
    m_hstmt = rows ? &rows->GetStatement() : nullptr;
    const std::lock_guard lock(m_RowsLock);
    m_Rows.swap(rows);
}

/// Executes the statement, takes its columns and makes the first fetch.
void CRecordset::RunQuery()
{
    StatementRecord& statement = m_Rows->GetStatement();
    m_nFieldsBound = 0;
    ResetCursor();
    if (m_nParams > 0)
    {
        Require(statement.Prepare(m_strSQL.View()));
        SendParameters();
        Require(statement.ExecutePrepared());
    }
    else
        Require(statement.Execute(m_strSQL.View()));
    Require(m_Rows->TakeColumns());
    m_nResultCols = static_cast<short>(m_Rows->GetColumns().size());
    PreBindFields();
    if (m_nResultCols == 0)
    {
        m_bBOF = true;
        m_bEOF = true;
        return;
    }
    Move(1, SQL_FETCH_NEXT);
}

void CRecordset::ReleaseRows()
{
    if (m_pDatabase)
        std::erase(m_pDatabase->m_OpenRecordsets, this);
    ReplaceRows(nullptr);
    m_FieldStatus.clear();
    m_nFieldsBound = 0;
    m_bBOF = true;
    m_bEOF = true;
    m_bDeleted = false;
    m_bEndSeen = false;
    m_lCurrentRecord = 0;
    m_lRecordCount = 0;
}

void CRecordset::Require(RETCODE code)
{
    if (!m_pDatabase->Check(code))
        ThrowDBException(code, m_hstmt);
}

} // namespace utility
