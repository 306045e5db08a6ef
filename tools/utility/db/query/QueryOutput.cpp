#include "utility/db/query/QueryOutput.h"

#include "platform/base/NumberText.h"

#include "utility/db/query/DbQuery.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr std::size_t FLUSH_ROWS = 1000;

CString ComposeSummary(const CDbQuery& query)
{
    CString text;
    text.Format(u"%d of %d rows, %d ms (filtering %d ms)", static_cast<int>(query.GetMatchCount()),
                query.GetRowCount(), static_cast<int>(query.GetTime()),
                static_cast<int>(query.GetFilterTime()));
    if (query.GetShownCount() < query.GetMatchCount())
        text.AppendFormat(u"; the first %d are shown", static_cast<int>(query.GetShownCount()));
    return text;
}

} // namespace

void PrintQueryTable(CDbQuery& query)
{
    CTextTable table;
    for (std::size_t column = 0; column < query.GetColumns().size(); column++)
        table.AddColumn(query.GetColumns()[column], query.IsNumeric(column)
                                                        ? CTextTable::EAlign::Right
                                                        : CTextTable::EAlign::Left);
    for (std::size_t row = 0; row < query.GetShownCount(); row++)
        table.AddRow(query.ReadRow(row));
    table.Print();
    PrintLine(CString());
    PrintLine(ComposeSummary(query));
}

void PrintQueryJson(CDbQuery& query)
{
    CJsonWriter json;
    json.BeginArray();
    for (std::size_t row = 0; row < query.GetShownCount(); row++)
    {
        const std::vector<CString> cells = query.ReadRow(row);
        json.BeginObject();
        for (std::size_t column = 0; column < cells.size(); column++)
        {
            json.Key(query.GetColumns()[column]);
            WriteCell(json, cells[column], query.IsNumeric(column));
        }
        json.EndObject();
        if (row % FLUSH_ROWS == 0)
            json.Flush();
    }
    json.EndArray();
    json.Flush();
    PrintBytes("\n");
}

// A whole number stays exact; the grid's text of a real one reads back as it was.
void WriteCell(CJsonWriter& json, const CString& text, bool isNumeric)
{
    if (!isNumeric)
        json.Text(text);
    else if (text.IsEmpty())
        json.Null();
    else if (text.FindOneOf(u".eEn") >= 0)
        json.Number(_wtof(text));
    else
        json.Number(_wtoi64(text));
}

void PrintQueryCsv(CDbQuery& query)
{
    PrintCsvLine(query.GetColumns());
    for (std::size_t row = 0; row < query.GetShownCount(); row++)
        PrintCsvLine(query.ReadRow(row));
}

} // namespace utility
