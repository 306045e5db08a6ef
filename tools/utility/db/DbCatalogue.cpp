#include "utility/db/DbCatalogue.h"

#include "database/DBADatabase.h"
#include "platform/base/Encoding.h"
#include "platform/db/GXDynamicRecordset.h"
#include "platform/db/ODBCFieldInfo.h"

#include "utility/db/DbColumns.h"
#include "utility/output/ToolOutput.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr struct
{
    short Type;
    const char16_t* Name;
} TYPE_NAMES[] = {
    {SQL_CHAR, u"text"},        {SQL_VARCHAR, u"text"},
    {SQL_LONGVARCHAR, u"text"}, {SQL_WCHAR, u"text"},
    {SQL_WVARCHAR, u"text"},    {SQL_WLONGVARCHAR, u"text"},
    {SQL_INTEGER, u"integer"},  {SQL_SMALLINT, u"integer"},
    {SQL_TINYINT, u"integer"},  {SQL_BIGINT, u"integer"},
    {SQL_NUMERIC, u"decimal"},  {SQL_DECIMAL, u"decimal"},
    {SQL_FLOAT, u"real"},       {SQL_REAL, u"real"},
    {SQL_DOUBLE, u"real"},      {SQL_BIT, u"bit"},
    {SQL_DATE, u"date"},        {SQL_TIME, u"time"},
    {SQL_TIMESTAMP, u"date"},   {SQL_BINARY, u"binary"},
    {SQL_VARBINARY, u"binary"}, {SQL_LONGVARBINARY, u"binary"},
};

CString TypeName(short type)
{
    for (const auto& row : TYPE_NAMES)
        if (row.Type == type)
            return row.Name;
    return u"other";
}

void PrintJson(const CRecordset& rows)
{
    CJsonWriter json;
    json.BeginArray();
    for (short column = 0; column < rows.GetODBCFieldCount(); column++)
    {
        CODBCFieldInfo info;
        rows.GetODBCFieldInfo(column, info);
        json.BeginObject();
        json.Field(u"name", info.m_strName);
        json.Field(u"type", TypeName(info.m_nSQLType));
        json.Key(u"length");
        json.Number(static_cast<std::int64_t>(info.m_nPrecision));
        json.EndObject();
    }
    json.EndArray();
    PrintLine(FromUtf8(json.GetText()));
}

void PrintTable(const CRecordset& rows)
{
    CTextTable table;
    table.AddColumn(u"Name");
    table.AddColumn(u"Type");
    table.AddColumn(u"Length", CTextTable::EAlign::Right);
    for (short column = 0; column < rows.GetODBCFieldCount(); column++)
    {
        CODBCFieldInfo info;
        rows.GetODBCFieldInfo(column, info);
        CString length;
        length.Format(u"%u", info.m_nPrecision);
        table.AddRow({info.m_strName, TypeName(info.m_nSQLType), length});
    }
    table.Print();
}

void PrintNames(const std::vector<CString>& names, bool json)
{
    if (!json)
    {
        for (const CString& name : names)
            PrintLine(name);
        return;
    }
    CJsonWriter list;
    list.BeginArray();
    for (const CString& name : names)
        list.Text(name);
    list.EndArray();
    PrintLine(FromUtf8(list.GetText()));
}

} // namespace

bool ReadTableNames(CDBADatabase& database, std::vector<CString>& names)
{
    const CString before = database.GetErrorDetails();
    CStringArray found;
    database.ReadTableNames(found); // has no result: a failure shows in the details alone
    const CString after = database.GetErrorDetails();
    if (after != before)
    {
        PrintError(after);
        return false;
    }
    for (int index = 0; index < static_cast<int>(found.GetSize()); index++)
        names.push_back(found[index]);
    std::sort(names.begin(), names.end());
    return true;
}

bool PrintTables(CDBADatabase& database, bool json)
{
    std::vector<CString> names;
    if (!ReadTableNames(database, names))
        return false;
    PrintNames(names, json);
    return true;
}

void PrintFields(CDBADatabase& database, const CString& table, bool json)
{
    CGXDynamicRecordset rows(&database);
    rows.Open(CRecordset::snapshot, u"SELECT * FROM " + DelimitTable(database, table),
              CRecordset::readOnly);
    json ? PrintJson(rows) : PrintTable(rows);
}

} // namespace utility
