#include "utility/db/DbColumns.h"

#include "database/DBADatabase.h"
#include "platform/base/Encoding.h"
#include "platform/db/DelimitName.h"
#include "platform/db/GXDynamicRecordset.h"
#include "platform/db/ODBCFieldInfo.h"

#include "utility/command/WordHint.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

/// The column that was likely meant, in any case of letters; empty if none is near.
CString NearestColumn(const CString& name, const std::vector<CString>& columns)
{
    const auto folded = [](CString text)
    {
        text.MakeLower();
        return ToUtf8(text.View());
    };
    std::vector<std::string> known;
    for (const CString& column : columns)
        known.push_back(folded(column));
    const std::string nearest = NearestWord(folded(name), known);
    const int place = nearest.empty() ? -1 : ColumnPlace(columns, FromUtf8(nearest));
    return place < 0 ? CString() : columns[static_cast<std::size_t>(place)];
}

} // namespace

std::vector<CString> ReadColumnNames(CDBADatabase& database, const CString& table)
{
    CGXDynamicRecordset probe(&database);
    probe.Open(CRecordset::snapshot,
               u"SELECT * FROM " + DelimitTable(database, table) + u" WHERE 0",
               CRecordset::readOnly);
    std::vector<CString> names;
    for (short column = 0; column < probe.GetODBCFieldCount(); column++)
    {
        CODBCFieldInfo info;
        probe.GetODBCFieldInfo(column, info);
        names.push_back(info.m_strName);
    }
    return names;
}

int ColumnPlace(const std::vector<CString>& columns, const CString& name)
{
    for (std::size_t place = 0; place < columns.size(); place++)
        if (columns[place].CompareNoCase(name) == 0)
            return static_cast<int>(place);
    return -1;
}

CString DelimitTable(const CDBADatabase& database, const CString& name)
{
    return database.DelimitTableName(DoubleBrackets(name));
}

bool IsNumericType(short type)
{
    return (type >= SQL_NUMERIC && type <= SQL_DOUBLE) || type == SQL_BIGINT || type == SQL_TINYINT;
}

void TellNoColumn(const CString& table, const CString& name, const std::vector<CString>& columns)
{
    const CString problem = u"'" + table + u"' has no column '" + name + u"'";
    const CString meant = NearestColumn(name, columns);
    if (!meant.IsEmpty())
        return PrintError(problem + u", did you mean '" + meant + u"'?");
    CString list;
    for (const CString& column : columns)
        list += (list.IsEmpty() ? u"" : u", ") + column;
    PrintError(problem + u"; it has " + list);
}

} // namespace utility
