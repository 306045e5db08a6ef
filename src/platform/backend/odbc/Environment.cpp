#include "platform/backend/odbc/Environment.h"

#include "platform/backend/odbc/DriverManager.h"
#include "platform/base/CaseFold.h"
#include "platform/base/Encoding.h"

#include <algorithm>
#include <array>

namespace utility
{

namespace
{

constexpr SQLSMALLINT MESSAGE_CAPACITY = 2048;
constexpr SQLSMALLINT MOST_RECORDS = 50; // a driver that never ends its list must not hang us

CDiagnostic ReadNarrowRecord(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number,
                             SQLRETURN& code)
{
    std::array<SQLCHAR, 6> state{};
    std::array<SQLCHAR, MESSAGE_CAPACITY> message{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    code = ::SQLGetDiagRec(type, handle, number, state.data(), &native, message.data(),
                           MESSAGE_CAPACITY, &length);
    return {FromUtf8(reinterpret_cast<const char*>(state.data())), native,
            FromUtf8(reinterpret_cast<const char*>(message.data()))};
}

CDiagnostic ReadWideRecord(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number, SQLRETURN& code)
{
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, MESSAGE_CAPACITY> message{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    code = ::SQLGetDiagRecW(type, handle, number, state.data(), &native, message.data(),
                            MESSAGE_CAPACITY, &length);
    return {CString(reinterpret_cast<const char16_t*>(state.data())), native,
            CString(reinterpret_cast<const char16_t*>(message.data()))};
}

} // namespace

COdbcEnvironment& COdbcEnvironment::Get()
{
    static COdbcEnvironment environment;
    return environment;
}

COdbcEnvironment::COdbcEnvironment()
{
    if (::SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_Handle) == SQL_SUCCESS)
        ::SQLSetEnvAttr(m_Handle, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3),
                        0);
}

COdbcEnvironment::~COdbcEnvironment()
{
    if (m_Handle)
        ::SQLFreeHandle(SQL_HANDLE_ENV, m_Handle);
}

CString COdbcEnvironment::FindDriverOfSource(std::u16string_view source) const
{
    std::array<SQLCHAR, 256> name{};
    std::array<SQLCHAR, 1024> driver{};
    SQLSMALLINT nameLength = 0;
    SQLSMALLINT driverLength = 0;
    SQLUSMALLINT direction = SQL_FETCH_FIRST;
    while (
        SQL_SUCCEEDED(::SQLDataSources(m_Handle, direction, name.data(), name.size(), &nameLength,
                                       driver.data(), driver.size(), &driverLength)))
    {
        direction = SQL_FETCH_NEXT;
        if (EqualNoCase(FromUtf8(reinterpret_cast<const char*>(name.data())).View(), source))
            return FromUtf8(reinterpret_cast<const char*>(driver.data()));
    }
    return {};
}

std::vector<CDiagnostic> ReadHandleDiagnostics(short handleType, void* handle, bool isWide)
{
    std::vector<CDiagnostic> diagnostics;
    for (SQLSMALLINT number = 1; handle && number <= MOST_RECORDS; ++number)
    {
        SQLRETURN code = SQL_SUCCESS;
        CDiagnostic diagnostic = isWide ? ReadWideRecord(handleType, handle, number, code)
                                        : ReadNarrowRecord(handleType, handle, number, code);
        if (!SQL_SUCCEEDED(code))
            break;
        diagnostics.push_back(std::move(diagnostic));
    }
    return diagnostics;
}

CDriverText::CDriverText(std::u16string_view text, bool isWide)
{
    if (isWide)
        m_Wide = text;
    else
        m_Narrow = ToUtf8(text);
}

} // namespace utility
