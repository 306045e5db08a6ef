#include "platform/backend/odbc/Statement.h"

#include "platform/backend/odbc/DriverManager.h"
#include "platform/backend/odbc/Environment.h"
#include "platform/base/Encoding.h"

#include <array>

namespace utility
{

namespace
{

constexpr SQLSMALLINT FIRST_INTERVAL = 101;
constexpr SQLSMALLINT LAST_INTERVAL = 113;
constexpr SQLSMALLINT NAME_CAPACITY = 1024;

SQLHSTMT AllocateStatement(SQLHDBC connection)
{
    SQLHSTMT statement = nullptr;
    ::SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement);
    return statement;
}

/// The classic number: dates 9 to 11, and what reads as text is text.
short ClassicType(SQLSMALLINT type)
{
    if (type >= SQL_TYPE_DATE && type <= SQL_TYPE_TIMESTAMP)
        return static_cast<short>(type - SQL_TYPE_DATE + SQL_DATE);
    if (type == SQL_GUID || (type >= FIRST_INTERVAL && type <= LAST_INTERVAL))
        return SQL_VARCHAR;
    return type;
}

/// A statement without the semicolons behind it, so that it can stand within another.
std::string_view WithoutEnd(std::string_view sql)
{
    const std::size_t last = sql.find_last_not_of("; \t\r\n");
    return sql.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

void TakeProbed(const CProbedColumn& probed, CODBCFieldInfo& column)
{
    if (probed.Type != 0)
        column.m_nSQLType = probed.Type;
    if (!probed.Name.empty())
        column.m_strName = FromUtf8(probed.Name);
}

} // namespace

COdbcStatement::COdbcStatement(COdbcConnection& connection)
    : m_Connection(connection),
      m_Handle(AllocateStatement(connection.GetHandle())),
      m_Cursor(m_Handle, connection.GetQuirks())
{
}

COdbcStatement::~COdbcStatement()
{
    m_Connection.LeaveCursor(this);
    if (m_Handle)
        ::SQLFreeHandle(SQL_HANDLE_STMT, m_Handle);
}

void COdbcStatement::SetTimeout(DWORD seconds)
{
    // A driver without time-outs refuses, which harms nothing.
    ::SQLSetStmtAttr(m_Handle, SQL_ATTR_QUERY_TIMEOUT,
                     reinterpret_cast<SQLPOINTER>(SQLULEN{seconds}), 0);
}

RETCODE COdbcStatement::Execute(std::u16string_view sql)
{
    if (m_Connection.GetQuirks().HidesColumns)
    {
        const RETCODE code = Prepare(sql); // the probe stands between the two
        return SQL_SUCCEEDED(code) ? ExecutePrepared() : code;
    }
    m_Connection.SettleCursors();
    m_Gate.Forget();
    const bool isWide = m_Connection.GetQuirks().IsWide;
    CDriverText text(m_Connection.Adapt(sql).View(), isWide);
    const CCallGate::CCall call(m_Gate);
    return isWide ? ::SQLExecDirectW(m_Handle, text.GetWide(), SQL_NTS)
                  : ::SQLExecDirect(m_Handle, text.GetNarrow(), SQL_NTS);
}

RETCODE COdbcStatement::Prepare(std::u16string_view sql)
{
    m_Connection.SettleCursors();
    m_Gate.Forget();
    const bool isWide = m_Connection.GetQuirks().IsWide;
    CDriverText text(m_Connection.Adapt(sql).View(), isWide);
    m_MayHideColumns = m_Connection.GetQuirks().HidesColumns;
    if (m_MayHideColumns)
        m_Sql = WithoutEnd(reinterpret_cast<const char*>(text.GetNarrow()));
    const CCallGate::CCall call(m_Gate);
    return isWide ? ::SQLPrepareW(m_Handle, text.GetWide(), SQL_NTS)
                  : ::SQLPrepare(m_Handle, text.GetNarrow(), SQL_NTS);
}

RETCODE COdbcStatement::ExecutePrepared()
{
    m_Connection.SettleCursors();
    const CCallGate::CCall call(m_Gate);
    if (m_MayHideColumns)
    {
        m_Probed = ProbeColumns(m_Connection.GetHandle(), m_Handle, m_Sql, m_Parameters);
        m_MayHideColumns = !m_Probed.empty(); // a row added needs no question each time
    }
    return m_Gate.WasStopped() ? SQL_ERROR
                               : ::SQLExecute(m_Handle); // not begun where the probe was stopped
}

std::int64_t COdbcStatement::GetRowCount()
{
    SQLLEN count = -1;
    ::SQLRowCount(m_Handle, &count);
    return count;
}

RETCODE COdbcStatement::SetParameter(std::size_t index, const CDbValue& value,
                                     const CODBCFieldInfo& column)
{
    while (m_Parameters.size() <= index)
        m_Parameters.emplace_back();
    return m_Parameters[index].Set(m_Handle, index, value, column,
                                   m_Connection.GetQuirks().TakesDatesAsText);
}

RETCODE COdbcStatement::DescribeColumns(std::vector<CODBCFieldInfo>& columns)
{
    SQLSMALLINT count = 0;
    RETCODE code = ::SQLNumResultCols(m_Handle, &count);
    m_Columns.assign(static_cast<std::size_t>(SQL_SUCCEEDED(code) ? count : 0), {});
    for (std::size_t index = 0; index < m_Columns.size() && SQL_SUCCEEDED(code); ++index)
        code = DescribeColumn(static_cast<SQLUSMALLINT>(index + 1), m_Columns[index]);
    columns = m_Columns;
    return code;
}

RETCODE COdbcStatement::DescribeColumn(unsigned short number, CODBCFieldInfo& column) const
{
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    SQLULEN precision = 0;
    RETCODE code = SQL_ERROR;
    if (m_Connection.GetQuirks().IsWide)
    {
        std::array<SQLWCHAR, NAME_CAPACITY> name{};
        code = ::SQLDescribeColW(m_Handle, number, name.data(), NAME_CAPACITY, &length, &type,
                                 &precision, &column.m_nScale, &column.m_nNullability);
        column.m_strName = reinterpret_cast<const char16_t*>(name.data());
    }
    else
    {
        std::array<SQLCHAR, NAME_CAPACITY> name{};
        code = ::SQLDescribeCol(m_Handle, number, name.data(), NAME_CAPACITY, &length, &type,
                                &precision, &column.m_nScale, &column.m_nNullability);
        column.m_strName = FromUtf8(reinterpret_cast<const char*>(name.data()));
    }
    column.m_nSQLType = ClassicType(type);
    if (number <= m_Probed.size())
        TakeProbed(m_Probed[number - 1U], column);
    column.m_nPrecision = static_cast<std::uint32_t>(std::min<SQLULEN>(precision, UINT32_MAX));
    return code;
}

RETCODE COdbcStatement::BindColumns(std::span<const CColumnLayout> layouts)
{
    m_EndCode = SQL_SUCCESS;
    return m_Cursor.Bind(layouts, m_Columns);
}

RETCODE COdbcStatement::FetchRows(CSnapshotStore& store)
{
    if (m_EndCode != SQL_SUCCESS)
        return m_EndCode;
    if (!m_Store)
        m_Connection.EnterCursor(this);
    m_Store = &store;
    const RETCODE code = Fetch(store);
    if (!SQL_SUCCEEDED(code))
    {
        m_EndCode = code;
        m_Store = nullptr;
        m_Connection.LeaveCursor(this);
    }
    return code;
}

RETCODE COdbcStatement::Fetch(CSnapshotStore& store)
{
    const CCallGate::CCall call(m_Gate);
    return m_Cursor.Fetch(store);
}

void COdbcStatement::FetchRest()
{
    CSnapshotStore& store = *m_Store;
    while (SQL_SUCCEEDED(FetchRows(store)))
        continue;
    if (m_EndCode == SQL_NO_DATA)
        ::SQLFreeStmt(m_Handle, SQL_CLOSE); // what it holds in the source is free again
}

void COdbcStatement::CloseCursor()
{
    m_Connection.LeaveCursor(this);
    m_Store = nullptr;
    ::SQLFreeStmt(m_Handle, SQL_CLOSE);
    m_Cursor.Unbind();
}

void COdbcStatement::Cancel()
{
    m_Gate.StopWith([this] { m_Connection.Stop(m_Handle); });
}

std::vector<CDiagnostic> COdbcStatement::ReadDiagnostics() const
{
    return ReadHandleDiagnostics(SQL_HANDLE_STMT, m_Handle, m_Connection.GetQuirks().IsWide);
}

} // namespace utility
