#include "platform/db/Database.h"

#include "platform/db/ConnectString.h"
#include "platform/db/DBException.h"
#include "platform/db/DBRefusal.h"
#include "platform/db/Driver.h"
#include "platform/db/Recordset.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CDatabase, CObject)

namespace
{

constexpr std::u16string_view ODBC_PREFIX = u"ODBC;";

/// "DSN=name;" in front of the string where a name is given.
CString ComposeConnect(LPCWSTR dsn, LPCWSTR connect)
{
    CString text(connect);
    if (text.Left(static_cast<int>(ODBC_PREFIX.size())).CompareNoCase(u"ODBC;") == 0)
        text = text.Mid(static_cast<int>(ODBC_PREFIX.size()));
    CString name(dsn);
    if (name.IsEmpty())
        return text;
    CConnectString source;
    source.Append(u"DSN", name.View());
    return text.IsEmpty() ? source.Format() : source.Format() + u";" + text;
}

} // namespace

CDatabase::CDatabase() = default;

CDatabase::~CDatabase()
{
    CDatabase::Close();
}

BOOL CDatabase::Open(LPCWSTR dsn, BOOL exclusive, BOOL readOnly, LPCWSTR connect,
                     BOOL /*useCursorLib*/)
{
    if (IsOpen())
        ThrowRefusal(AFX_SQL_ERROR_CONNECTION_IN_USE);
    if (exclusive)
        ThrowRefusal(AFX_SQL_ERROR_NOT_OFFERED, u"exclusive use of a data source");
    CString source(dsn);
    CConnectRequest request;
    request.Connect = ComposeConnect(source.IsEmpty() ? GetDSN().GetString() : dsn, connect);
    if (request.Connect.IsEmpty())
        ThrowRefusal(AFX_SQL_ERROR_NO_SOURCE_NAMED);
    request.IsReadOnly = readOnly != FALSE;
    request.LoginTimeoutSeconds = m_dwLoginTimeout;

    std::vector<CDiagnostic> diagnostics;
    std::unique_ptr<ConnectionRecord> connection = ConnectToSource(request, diagnostics);
    if (!connection)
        ThrowDriverRefusal(SQL_ERROR, diagnostics, EDBFailure::Other);
    m_Connection = std::move(connection);
    m_hdbc = m_Connection.get();
    m_strConnect = m_Connection->GetConnect();
    m_bTransactions = m_Connection->GetTraits().HasTransactions ? TRUE : FALSE;
    m_bReadOnly = readOnly;
    return TRUE;
}

void CDatabase::Close()
{
    while (!m_OpenRecordsets.empty())
        m_OpenRecordsets.back()->ReleaseRows(); // takes itself off the list
    m_hstmt = nullptr;
    m_hdbc = nullptr;
    m_Connection.reset();
    m_bInTransaction = false;
}

void CDatabase::ExecuteSQL(LPCWSTR sql)
{
    if (!IsOpen())
        ThrowDBException(AFX_SQL_ERROR_CONNECTION_CLOSED);
    std::unique_ptr<StatementRecord> statement = m_hdbc->MakeStatement(m_dwQueryTimeout);
    if (!statement)
        ThrowDBException(SQL_ERROR);
    m_hstmt = statement.get();
    SetRunning(m_hstmt);
    const CString text(sql);
    const RETCODE code = statement->Execute(text.View());
    SetRunning(nullptr);
    if (!Check(code))
    {
        const std::unique_ptr<StatementRecord> keptForItsWords = std::move(statement);
        struct CForget
        {
            CDatabase& Database;
            ~CForget() { Database.m_hstmt = nullptr; }
        } const forget{*this};
        ThrowDBException(code);
    }
    m_RowsAffected = code == SQL_NO_DATA ? 0 : statement->GetRowCount();
    m_hstmt = nullptr;
}

BOOL CDatabase::BeginTrans()
{
    if (!IsOpen() || !m_bTransactions || m_bInTransaction)
        return FALSE;
    m_bInTransaction = Check(m_hdbc->SetAutoCommit(false)) != FALSE;
    return m_bInTransaction ? TRUE : FALSE;
}

BOOL CDatabase::CommitTrans()
{
    return EndTrans(true);
}

BOOL CDatabase::Rollback()
{
    return EndTrans(false);
}

/// A refused commit leaves the transaction open, so that it can be rolled back.
BOOL CDatabase::EndTrans(bool keep)
{
    if (!IsOpen() || !m_bInTransaction)
        return FALSE;
    if (!Check(m_hdbc->EndTransaction(keep)))
        return FALSE;
    m_bInTransaction = false;
    return Check(m_hdbc->SetAutoCommit(true));
}

void CDatabase::Cancel()
{
    const std::lock_guard lock(m_RunningLock);
    if (m_Running)
        m_Running->Cancel();
}

void CDatabase::SetRunning(StatementRecord* statement)
{
    const std::lock_guard lock(m_RunningLock);
    m_Running = statement;
}

BOOL CDatabase::Check(RETCODE code) const
{
    switch (code)
    {
    case SQL_SUCCESS:
    case SQL_SUCCESS_WITH_INFO:
    case SQL_NO_DATA:
    case SQL_STILL_EXECUTING:
        return TRUE;
    default:
        return FALSE;
    }
}

BOOL CDatabase::CheckHstmt(RETCODE code, HSTMT /*statement*/) const
{
    return Check(code);
}

void CDatabase::ThrowDBException(RETCODE code)
{
    AfxThrowDBException(code, this, m_hstmt);
}

CString CDatabase::GetDSN() const
{
    return {};
}

} // namespace utility
