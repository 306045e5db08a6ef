#include "database/DBAContext.h"
#include "database/DBADatabase.h"
#include "database/DBARecordset.h"
#include "database/DBFInfo.h"
#include "database/DBFieldMap.h"
#include "frame/AppLogBlock.h"
#include "platform/base/Encoding.h"
#include "platform/db/DBException.h"
#include "platform/db/ODBCFieldInfo.h"
#include "platform/db/OdbcCalls.h"

namespace utility
{

namespace
{

constexpr const char16_t* TABLE_TYPES = u"'TABLE', 'VIEW', 'SYNONYM'";
constexpr WORD TABLE_NAME_COLUMN = 3;
constexpr int NAME_BUFFER = 256; // bytes with a terminator; a longer name takes several reads

// Makes a call again for as long as the driver is still at it.
template <typename TCall>
RETCODE Complete(TCall call)
{
    RETCODE code = SQL_SUCCESS;
    do
        code = call();
    while (code == SQL_STILL_EXECUTING);
    return code;
}

const CAppLogContext& ValueContext()
{
    static const CAppLogContext context(u"DBADatabaseDetails", 0);
    return context;
}

void LogColumn(CDBARecordset& set, int index, const CString& name)
{
    CAppLog::Log(DBAContext(), u"RS.Field(%1!d!) = %2 (%3!d!)", index, name,
                 set.Field(index).m_dwType);
    if (CAppLog::IsStarted(ValueContext()))
        CAppLog::Log(ValueContext(), u"Value=%1\n", set.Field(index).AsString());
    else
        CAppLog::Log(DBAContext(), u"\n");
}

// The entries whose columns the table no longer has.
std::vector<CString> AbsentColumns(const CDBARecordset& set, const CDBFieldMap& fieldMap)
{
    std::vector<CString> names;
    for (int index = 0; index < fieldMap.GetCount(); ++index)
        if (set.GetFieldID(fieldMap.GetField(index)->GetName()) < 0)
            names.push_back(fieldMap.GetField(index)->GetName());
    return names;
}

} // namespace

const CAppLogContext& DBAContext()
{
    static const CAppLogContext context(u"DBADatabase", 0);
    return context;
}

void CDBADatabase::CheckCall(RETCODE code, HSTMT statement)
{
    CAppLog::Log(DBAContext(), u"CheckHstmt(%1!d!, %2!d!)\n", static_cast<int>(code),
                 reinterpret_cast<std::int64_t>(statement));
    if (!CheckHstmt(code, statement))
        AfxThrowDBException(code, this, statement);
}

void CDBADatabase::ReadTableNames(CStringArray& names)
{
    const CAppLogBlock block(DBAContext(), u"CDBADatabase::ReadTableNames");
    names.SetSize(0);
    CAppLog::Log(DBAContext(), u"IsOpen = %1!d!\n", m_hdbc ? 1 : 0);
    if (!m_hdbc)
        return;
    try
    {
        WalkTableNames(m_CatalogueStatement, names);
    }
    catch (CDBException* exception)
    {
        Record(exception);
    }
}

void CDBADatabase::WalkTableNames(HSTMT& statement, CStringArray& names)
{
    if (!statement)
    {
        CAppLog::Log(DBAContext(), u"SQLAllocStmt(%1!d!, &hStmt)\n",
                     reinterpret_cast<std::int64_t>(m_hdbc));
        const RETCODE code = SQLAllocStmt(m_hdbc, &statement);
        CheckCall(code, statement);
    }
    CAppLog::Log(DBAContext(), u"SQLTables(...)\n");
    CheckCall(Complete(
                  [&]
                  {
                      return SQLTablesW(statement, nullptr, SQL_NTS, nullptr, SQL_NTS, nullptr,
                                        SQL_NTS, TABLE_TYPES, SQL_NTS);
                  }),
              statement);
    for (;;)
    {
        CAppLog::Log(DBAContext(), u"SQLFetch(...)\n");
        const RETCODE code = Complete([&] { return SQLFetch(statement); });
        if (code == SQL_NO_DATA)
            break;
        CheckCall(code, statement);
        names.Add(ReadTableName(statement));
        CAppLog::Log(DBAContext(), u"TableName(%1)\n", names.GetAt(names.GetUpperBound()));
    }
    CAppLog::Log(DBAContext(), u"SQLFreeStmt(...)\n");
    SQLFreeStmt(statement, SQL_CLOSE);
}

CString CDBADatabase::ReadTableName(HSTMT statement)
{
    std::string bytes;
    RETCODE code = SQL_SUCCESS_WITH_INFO;
    while (code == SQL_SUCCESS_WITH_INFO)
    {
        char buffer[NAME_BUFFER] = {};
        std::int64_t length = 0;
        CAppLog::Log(DBAContext(), u"SQLGetData(...)\n");
        code = Complete(
            [&] {
                return SQLGetData(statement, TABLE_NAME_COLUMN, SQL_C_CHAR, buffer, NAME_BUFFER,
                                  &length);
            });
        if (code == SQL_NO_DATA)
            break;
        CheckCall(code, statement);
        if (length == SQL_NULL_DATA)
            break;
        bytes += buffer;
        if (length < NAME_BUFFER)
            break;
    }
    return FromUtf8(bytes);
}

bool CDBADatabase::ReadFieldNames(const CString& table, CDBFieldMap& fieldMap)
{
    const CAppLogBlock block(DBAContext(), u"ReadFieldNames::Open(%1)", table);
    if (table.IsEmpty())
    {
        fieldMap.Empty();
        return true;
    }
    try
    {
        CDBARecordset set(this, CString());
        const CString sql = GetTableSql(table);
        CAppLog::Log(DBAContext(), u"About to call RS.Open(%1)\n", sql);
        if (!set.Open(sql.GetString()))
        {
            CAppLog::Log(DBAContext(), u"RS.Open(%1) = false\n", sql);
            return false;
        }
        CAppLog::Log(DBAContext(), u"RS.Open(%1) = true\n", sql);
        TakeColumns(set, fieldMap);
        CAppLog::Log(DBAContext(), u"RS.Close()\n");
        set.Close();
        return true;
    }
    catch (CDBException* exception)
    {
        Record(exception);
        return false;
    }
}

void CDBADatabase::TakeColumns(CDBARecordset& set, CDBFieldMap& fieldMap)
{
    const int count = set.GetODBCFieldCount();
    CAppLog::Log(DBAContext(), u"RS.GetODBCFieldCount() = %1!d!\n", count);
    for (int index = 0; index < count; ++index)
    {
        const CString name = set.Field(index).GetName();
        const DWORD type = set.Field(index).m_dwType;
        LogColumn(set, index, name);
        CDBFInfo* info = fieldMap.FindField(name);
        if (info)
            info->SetType(type);
        else
            fieldMap.Add(info = new CDBFInfo(name, type));
        CODBCFieldInfo column;
        set.GetODBCFieldInfo(static_cast<short>(index), column);
        info->SetSqlType(static_cast<DWORD>(column.m_nSQLType));
    }
    for (const CString& name : AbsentColumns(set, fieldMap))
        fieldMap.DeleteField(name);
}

} // namespace utility
