#include "platform/backend/odbc/Connection.h"

#include "platform/backend/odbc/DriverManager.h"
#include "platform/backend/odbc/Environment.h"
#include "platform/backend/odbc/Statement.h"
#include "platform/base/Encoding.h"

#include <array>

namespace utility
{

namespace
{

SQLPOINTER AsAttribute(SQLULEN value)
{
    return reinterpret_cast<SQLPOINTER>(value);
}

/// What names the driver of a string: itself, or the set-up of its source.
CString FindDriver(const CConnectString& connect)
{
    if (connect.Has(u"DRIVER"))
        return connect.Get(u"DRIVER");
    return COdbcEnvironment::Get().FindDriverOfSource(connect.Get(u"DSN").View());
}

bool IsLibraryPath(const CString& driver)
{
    return driver.IsEmpty() || driver.Find(u'/') >= 0;
}

} // namespace

std::unique_ptr<ConnectionRecord> ConnectToSource(const CConnectRequest& request,
                                                  std::vector<CDiagnostic>& diagnostics)
{
    auto connection = std::make_unique<COdbcConnection>();
    if (SQL_SUCCEEDED(connection->Connect(request)))
        return connection;
    diagnostics = connection->ReadDiagnostics();
    return nullptr;
}

COdbcConnection::COdbcConnection() : m_Quirks(&FindQuirksByDbms(u"")) {}

COdbcConnection::~COdbcConnection()
{
    m_DirectStatements.clear();
    if (m_IdleStatement)
        ::SQLFreeHandle(SQL_HANDLE_STMT, m_IdleStatement);
    if (m_IsConnected)
    {
        ::SQLEndTran(SQL_HANDLE_DBC, m_Handle,
                     SQL_ROLLBACK); // an open transaction would forbid leaving
        ::SQLDisconnect(m_Handle);
    }
    if (m_Handle)
        ::SQLFreeHandle(SQL_HANDLE_DBC, m_Handle);
}

RETCODE COdbcConnection::Connect(const CConnectRequest& request)
{
    RETCODE code = ::SQLAllocHandle(SQL_HANDLE_DBC, COdbcEnvironment::Get().GetHandle(), &m_Handle);
    if (!SQL_SUCCEEDED(code))
        return code;

    CConnectString connect(request.Connect.View());
    if (connect.Get(u"DSN").IsEmpty())
        connect.Remove(u"DSN"); // the driver manager would take the first source it knows
    const CString driver = FindDriver(connect);
    m_Quirks = &FindQuirksByDriver(driver.View());
    CConnectString completed = connect;
    AddConnectDefaults(completed, *m_Quirks);
    if (request.LoginTimeoutSeconds > 0)
    {
        ::SQLSetConnectAttr(m_Handle, SQL_ATTR_LOGIN_TIMEOUT,
                            AsAttribute(request.LoginTimeoutSeconds), 0);
        CString seconds;
        seconds.Format(u"%u", request.LoginTimeoutSeconds);
        if (m_Quirks->TimeoutKey[0] != 0 && !completed.Has(m_Quirks->TimeoutKey))
            completed.Append(m_Quirks->TimeoutKey, seconds.View());
    }
    if (request.IsReadOnly)
        ::SQLSetConnectAttr(m_Handle, SQL_ATTR_ACCESS_MODE, AsAttribute(SQL_MODE_READ_ONLY), 0);

    CDriverText text(completed.Format().View(), m_Quirks->IsWide);
    SQLSMALLINT length = 0;
    code = m_Quirks->IsWide ? ::SQLDriverConnectW(m_Handle, nullptr, text.GetWide(), SQL_NTS,
                                                  nullptr, 0, &length, SQL_DRIVER_NOPROMPT)
                            : ::SQLDriverConnect(m_Handle, nullptr, text.GetNarrow(), SQL_NTS,
                                                 nullptr, 0, &length, SQL_DRIVER_NOPROMPT);
    m_IsConnected = SQL_SUCCEEDED(code);
    if (!m_IsConnected)
        return code;

    ReadTraits();
    if (!connect.Has(u"DRIVER"))
        connect.Append(u"DRIVER",
                       IsLibraryPath(driver) ? ReadInfoText(SQL_DBMS_NAME).View() : driver.View());
    m_Connect = connect.Format();
    return code;
}

void COdbcConnection::ReadTraits()
{
    const CString dbmsName = ReadInfoText(SQL_DBMS_NAME);
    m_Quirks = &FindQuirksByDbms(dbmsName.View());
    m_Dialect = m_Quirks->Dialect;
    if (m_Quirks->DbmsName[0] == 0) // a source we never measured says itself how it quotes
    {
        const CString quote = ReadInfoText(SQL_IDENTIFIER_QUOTE_CHAR);
        if (quote.GetLength() == 1 && quote != u" ")
            m_Dialect.Quote = quote.GetAt(0);
    }
    m_Traits = m_Quirks->Traits;
    SQLUSMALLINT capability = SQL_TC_NONE;
    SQLSMALLINT length = 0;
    ::SQLGetInfo(m_Handle, SQL_TXN_CAPABLE, &capability, sizeof(capability), &length);
    m_Traits.HasTransactions = capability != SQL_TC_NONE;
    if (m_Quirks->StopFreesRows)
        ::SQLAllocHandle(SQL_HANDLE_STMT, m_Handle, &m_IdleStatement);
}

CSourceFacts COdbcConnection::ReadFacts() const
{
    CSourceFacts facts;
    facts.DbmsName = ReadInfoText(SQL_DBMS_NAME);
    facts.DbmsVersion = ReadInfoText(SQL_DBMS_VER);
    facts.DriverName = ReadInfoText(SQL_DRIVER_NAME);
    facts.DriverVersion = ReadInfoText(SQL_DRIVER_VER);
    facts.OdbcVersion = ReadInfoText(SQL_DRIVER_ODBC_VER);
    facts.IsKnown = m_Quirks->DbmsName[0] != 0;
    facts.IsWide = m_Quirks->IsWide;
    facts.RowSetSize = m_Quirks->RowSetSize;
    facts.TakesWholeResult = m_Quirks->TakesWholeResult;
    facts.CursorStandsAlone = m_Quirks->CursorStandsAlone;
    facts.HidesColumns = m_Quirks->HidesColumns;
    facts.StoresDatesAsText = m_Quirks->TakesDatesAsText;
    return facts;
}

CString COdbcConnection::ReadInfoText(unsigned short kind) const
{
    std::array<SQLCHAR, 256> text{};
    SQLSMALLINT length = 0;
    ::SQLGetInfo(m_Handle, kind, text.data(), text.size(), &length);
    return FromUtf8(reinterpret_cast<const char*>(text.data()));
}

std::unique_ptr<StatementRecord> COdbcConnection::MakeStatement(DWORD timeoutSeconds)
{
    auto statement = std::make_unique<COdbcStatement>(*this);
    if (!statement->GetHandle())
        return nullptr;
    statement->SetTimeout(timeoutSeconds);
    return statement;
}

void COdbcConnection::Stop(void* statement) const
{
    ::SQLCancel(m_IdleStatement ? m_IdleStatement : statement);
}

RETCODE COdbcConnection::SetAutoCommit(bool isOn)
{
    SettleCursors();
    return ::SQLSetConnectAttr(m_Handle, SQL_ATTR_AUTOCOMMIT,
                               AsAttribute(isOn ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), 0);
}

bool COdbcConnection::IsLost() const
{
    SQLUINTEGER state = SQL_CD_FALSE;
    return SQL_SUCCEEDED(::SQLGetConnectAttr(m_Handle, SQL_ATTR_CONNECTION_DEAD, &state,
                                             SQL_IS_UINTEGER, nullptr)) &&
           state == SQL_CD_TRUE;
}

RETCODE COdbcConnection::EndTransaction(bool keep)
{
    SettleCursors();
    if (keep && IsLost())
        return SQL_ERROR; // PostgreSQL's driver has nothing to commit then, and would call that done
    return ::SQLEndTran(SQL_HANDLE_DBC, m_Handle, keep ? SQL_COMMIT : SQL_ROLLBACK);
}

std::vector<CDiagnostic> COdbcConnection::ReadDiagnostics() const
{
    return ReadHandleDiagnostics(SQL_HANDLE_DBC, m_Handle, m_Quirks->IsWide);
}

CString COdbcConnection::Adapt(std::u16string_view sql) const
{
    return AdaptStatement(sql, m_Dialect);
}

void COdbcConnection::SettleCursors()
{
    while (!m_UnfinishedCursors.empty())
    {
        COdbcStatement* const statement = m_UnfinishedCursors.back();
        m_UnfinishedCursors.pop_back();
        statement->FetchRest();
    }
}

void COdbcConnection::EnterCursor(COdbcStatement* statement)
{
    if (m_Quirks->CursorStandsAlone)
        m_UnfinishedCursors.push_back(statement);
}

void COdbcConnection::LeaveCursor(COdbcStatement* statement)
{
    std::erase(m_UnfinishedCursors, statement);
}

COdbcStatement* COdbcConnection::MakeDirectStatement()
{
    auto statement = std::make_unique<COdbcStatement>(*this);
    if (!statement->GetHandle())
        return nullptr;
    m_DirectStatements.push_back(std::move(statement));
    return m_DirectStatements.back().get();
}

void COdbcConnection::DropDirectStatement(HSTMT statement)
{
    std::erase_if(m_DirectStatements, [&](const auto& kept) { return kept.get() == statement; });
}

} // namespace utility
