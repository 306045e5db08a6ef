#include "platform/db/OdbcCalls.h"

#include "platform/backend/odbc/DriverManager.h"
#include "platform/backend/odbc/Environment.h"
#include "platform/backend/odbc/Statement.h"
#include "platform/base/Encoding.h"

#include <array>
#include <string_view>

namespace utility
{

namespace
{

COdbcStatement* Behind(HSTMT statement)
{
    return static_cast<COdbcStatement*>(statement);
}

/// One catalogue argument as the driver takes it; a null pointer stays null.
class CCatalogueText
{
public:
    CCatalogueText(LPCWSTR text, short length, bool isWide)
        : m_IsNull(text == nullptr),
          m_Text(text ? Take(text, length) : std::u16string_view(), isWide)
    {
    }

    SQLWCHAR* GetWide() { return m_IsNull ? nullptr : m_Text.GetWide(); }
    SQLCHAR* GetNarrow() { return m_IsNull ? nullptr : m_Text.GetNarrow(); }

private:
    static std::u16string_view Take(LPCWSTR text, short length)
    {
        return length < 0 ? std::u16string_view(text)
                          : std::u16string_view(text, static_cast<std::size_t>(length));
    }

    bool m_IsNull;
    CDriverText m_Text;
};

CString ReadCurrentCatalogue(const COdbcConnection& connection)
{
    std::array<SQLWCHAR, 256> name{};
    SQLINTEGER length = 0;
    ::SQLGetConnectAttrW(connection.GetHandle(), SQL_ATTR_CURRENT_CATALOG, name.data(),
                         sizeof(name), &length);
    return CString(reinterpret_cast<const char16_t*>(name.data()));
}

} // namespace

RETCODE SQLAllocStmt(HDBC connection, HSTMT* statement)
{
    if (!connection)
        return SQL_INVALID_HANDLE;
    *statement = static_cast<COdbcConnection*>(connection)->MakeDirectStatement();
    return *statement ? SQL_SUCCESS : SQL_ERROR;
}

RETCODE SQLTablesW(HSTMT statement, LPCWSTR catalogue, short catalogueLength, LPCWSTR schema,
                   short schemaLength, LPCWSTR table, short tableLength, LPCWSTR types,
                   short typesLength)
{
    if (!statement)
        return SQL_INVALID_HANDLE;
    const COdbcConnection& connection = Behind(statement)->GetConnection();
    const CDriverQuirks& quirks = connection.GetQuirks();

    const CString current =
        !catalogue && quirks.ListsWholeServer ? ReadCurrentCatalogue(connection) : CString();
    CCatalogueText catalogueText(current.IsEmpty() ? catalogue : current.GetString(),
                                 current.IsEmpty() ? catalogueLength : short{SQL_NTS},
                                 quirks.IsWide);
    CString typeList = types ? CString(types) : CString();
    if (types && typesLength >= 0)
        typeList = typeList.Left(typesLength);
    if (quirks.ClosesUpTypeList)
        typeList.Replace(u", ", u",");
    CCatalogueText typeText(types ? typeList.GetString() : nullptr, SQL_NTS, quirks.IsWide);
    CCatalogueText schemaText(schema, schemaLength, quirks.IsWide);
    CCatalogueText tableText(table, tableLength, quirks.IsWide);

    void* const handle = Behind(statement)->GetHandle();
    return quirks.IsWide
               ? ::SQLTablesW(handle, catalogueText.GetWide(), SQL_NTS, schemaText.GetWide(),
                              SQL_NTS, tableText.GetWide(), SQL_NTS, typeText.GetWide(), SQL_NTS)
               : ::SQLTables(handle, catalogueText.GetNarrow(), SQL_NTS, schemaText.GetNarrow(),
                             SQL_NTS, tableText.GetNarrow(), SQL_NTS, typeText.GetNarrow(),
                             SQL_NTS);
}

RETCODE SQLFetch(HSTMT statement)
{
    return statement ? ::SQLFetch(Behind(statement)->GetHandle()) : SQL_INVALID_HANDLE;
}

RETCODE SQLGetData(HSTMT statement, WORD column, short carrier, void* buffer, std::int64_t capacity,
                   std::int64_t* length)
{
    if (!statement)
        return SQL_INVALID_HANDLE;
    SQLLEN left = 0;
    const RETCODE code = ::SQLGetData(Behind(statement)->GetHandle(), column, carrier, buffer,
                                      static_cast<SQLLEN>(capacity), &left);
    if (length)
        *length = left;
    return code;
}

RETCODE SQLFreeStmt(HSTMT statement, WORD option)
{
    if (!statement)
        return SQL_INVALID_HANDLE;
    if (option != SQL_DROP)
        return ::SQLFreeStmt(Behind(statement)->GetHandle(), option);
    Behind(statement)->GetConnection().DropDirectStatement(statement);
    return SQL_SUCCESS;
}

} // namespace utility
