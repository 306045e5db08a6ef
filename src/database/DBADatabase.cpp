#include "database/DBADatabase.h"

#include "database/DBAContext.h"
#include "database/DBARecordset.h"
#include "database/LowerCased.h"
#include "frame/AppError.h"
#include "frame/AppLogBlock.h"
#include "platform/base/LastError.h"
#include "platform/db/ConnectString.h"
#include "platform/db/DBException.h"
#include "resources/StringIds.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CDBADatabase, CDatabase)

namespace
{

constexpr const char16_t* SELECT_ALL = u"SELECT * FROM %s";
constexpr const char16_t* SELECT_NONE = u"SELECT * FROM %s WHERE 0";
constexpr const char16_t* CREATE_TABLE =
    u"CREATE TABLE %s (ID INTEGER NOT NULL PRIMARY KEY AUTO_INCREMENT)";
constexpr const char16_t* DROP_TABLE = u"DROP TABLE %s";
constexpr UINT EXCEPTION_TEXT_LIMIT = 256;

CString Compose(const char16_t* format, const CString& name)
{
    CString sql;
    sql.Format(format, name);
    return sql;
}

// What the connect string tells of the dialect; `preset` if it tells nothing. Names and paths in it
// count too.
int DialectOf(const CString& connect, int preset)
{
    const CString lower = LowerCased(connect);
    if (lower.Find(u"oracle") >= 0)
        return DB_TYPE_ORACLE;
    return lower.Find(u"postgresql") >= 0 ? DB_TYPE_POSTGRESQL : preset;
}

void LogFailedOpen(const CException& exception)
{
    char16_t text[EXCEPTION_TEXT_LIMIT];
    CAppLog::Log(DBAContext(), u"Error = %1!d!\n", static_cast<int>(GetLastError()));
    exception.GetErrorMessage(text, EXCEPTION_TEXT_LIMIT);
    CAppLog::Log(DBAContext(), u"Exception = '%1'\n", text);
}

} // namespace

BOOL CDBADatabase::Open(LPCWSTR dsn, BOOL exclusive, BOOL readOnly, LPCWSTR connect,
                        BOOL useCursorLib)
{
    const CAppLogBlock block(DBAContext(), u"CDBADatabase::Open");
    if (dsn && *dsn)
        CAppLog::Log(DBAContext(), u"lpszDSN = %1\n", dsn);
    CAppLog::Log(DBAContext(), u"bExclusive = %1!d!\n", exclusive);
    CAppLog::Log(DBAContext(), u"bReadOnly = %1!d!\n", readOnly);
    if (connect && *connect && CAppLog::IsStarted(DBAContext()))
        CAppLog::Log(DBAContext(), u"lpszConnect = %1\n", MaskPasswords(connect));
    CAppLog::Log(DBAContext(), u"bUseCursorLib = %1!d!\n", useCursorLib);

    BOOL result = FALSE;
    try
    {
        CAppLog::Log(DBAContext(), u"Calling CDatabase::Open()\n");
        result = CDatabase::Open(dsn, exclusive, readOnly, connect, useCursorLib);
        if (result)
            m_DbType = DialectOf(GetConnect(), m_DbType);
    }
    catch (CException* exception)
    {
        const CExceptionGuard guard(exception);
        LogFailedOpen(*exception);
        CAppError::SetLastError(IDS_PLAIN_TEXT, exception->GetErrorText());
    }
    CAppLog::Log(DBAContext(), u"Result = %1!d!\n", result);
    return result;
}

void CDBADatabase::Close()
{
    CAppLog::Log(DBAContext(), u"CDBADatabase::Close\n");
    m_CatalogueStatement = nullptr;
    CDatabase::Close();
    m_DbType = DB_TYPE_DEFAULT;
}

void CDBADatabase::ThrowDBException(RETCODE code)
{
    AfxThrowDBException(code, this, m_hstmt);
}

CString CDBADatabase::DelimitTableName(const CString& name) const
{
    if (m_DbType == DB_TYPE_ORACLE && name.Find(u'.') >= 0)
        return name;
    return Compose(u"[%s]", name);
}

CString CDBADatabase::GetTableSql(const CString& table) const
{
    CString sql;
    if (m_TableSql.Lookup(LowerCased(table), sql))
        return sql;
    return Compose(SELECT_ALL, DelimitTableName(table));
}

void CDBADatabase::SetTableSql(const CString& table, const CString& sql)
{
    m_TableSql.SetAt(LowerCased(table), sql);
}

void CDBADatabase::CopyTableSql(const CDBADatabase& other)
{
    m_TableSql = other.m_TableSql;
}

bool CDBADatabase::TableExists(const CString& table)
{
    try
    {
        CDBARecordset probe(this, CString());
        return probe.Open(Compose(SELECT_NONE, DelimitTableName(table)).GetString()) != 0;
    }
    catch (CDBException* exception)
    {
        Record(exception);
        return false;
    }
}

bool CDBADatabase::CreateTable(const CString& table)
{
    return Execute(CREATE_TABLE, table);
}

bool CDBADatabase::DeleteTable(const CString& table)
{
    Execute(DROP_TABLE, table);
    return true;
}

bool CDBADatabase::Execute(const char16_t* format, const CString& name)
{
    try
    {
        ExecuteSQL(Compose(format, name));
        return true;
    }
    catch (CDBException* exception)
    {
        Record(exception);
        return false;
    }
}

void CDBADatabase::Record(CDBException* exception)
{
    m_Error.Record(exception);
    if (CAppLog::IsStarted(DBAContext()))
        CAppLog::Log(DBAContext(), u"\nCDBException: %1\n", GetErrorDetails());
}

BOOL CDBADatabase::SetTransactionsAllowed(BOOL allowed)
{
    return std::exchange(m_bTransactions, allowed);
}

} // namespace utility
