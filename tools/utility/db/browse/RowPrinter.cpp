#include "utility/db/browse/RowPrinter.h"

#include "utility/db/browse/BrowseRows.h"
#include "utility/db/query/QueryOutput.h"
#include "utility/output/ScreenWidth.h"
#include "utility/output/ToolOutput.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr int MEASURED_ROWS = 1000;
constexpr int FLUSH_ROWS = 1000;
constexpr DWORD STEP_TIME = 30; // milliseconds
constexpr int GAP_WIDTH = 2;

/// Whether there is such a row; reads on until that is known.
bool HasRow(CBrowseRows& rows, int row)
{
    while (row >= rows.GetCount() && rows.FetchAhead(STEP_TIME))
        continue;
    return row < rows.GetCount();
}

std::vector<std::size_t> ShownColumns(const CBrowseRows& rows)
{
    std::vector<std::size_t> shown;
    for (std::size_t column = 0; column < rows.GetColumns().size(); column++)
        if (rows.GetColumns()[column].m_IsShown)
            shown.push_back(column);
    return shown;
}

/// A table of which lines can be printed before all are known.
class CRowTable
{
public:
    explicit CRowTable(CBrowseRows& rows) : m_Rows(rows), m_Shown(ShownColumns(rows))
    {
        for (const std::size_t column : m_Shown)
            m_Widths.push_back(ScreenWidth(Heading(column)));
        for (int row = 0; row < MEASURED_ROWS && HasRow(rows, row); row++)
            for (std::size_t place = 0; place < m_Shown.size(); place++)
                m_Widths[place] = std::max(
                    m_Widths[place], ScreenWidth(Printable(rows.GetText(row, m_Shown[place]))));
    }

    void Print()
    {
        PrintCells([this](std::size_t place) { return Heading(m_Shown[place]); });
        PrintCells([this](std::size_t place) { return CString(u'-', m_Widths[place]); });
        for (int row = 0; HasRow(m_Rows, row); row++)
            PrintCells([this, row](std::size_t place)
                       { return Printable(m_Rows.GetText(row, m_Shown[place])); });
    }

private:
    CString Heading(std::size_t column) const
    {
        return Printable(m_Rows.GetColumns()[column].m_Heading);
    }

    template <typename TCell>
    void PrintCells(const TCell& cell)
    {
        CString line;
        for (std::size_t place = 0; place < m_Shown.size(); place++)
        {
            const CString text = cell(place);
            const bool isNumber = m_Rows.GetColumns()[m_Shown[place]].m_IsNumeric;
            const int blanks = std::max(0, m_Widths[place] - ScreenWidth(text));
            line += CString(u' ', isNumber ? blanks : 0) + text +
                    CString(u' ', (isNumber ? 0 : blanks) + GAP_WIDTH);
        }
        PrintLine(line.TrimRight(u' '));
    }

    CBrowseRows& m_Rows;
    std::vector<std::size_t> m_Shown;
    std::vector<int> m_Widths; // one a shown column
};

} // namespace

void PrintRows(CBrowseRows& rows)
{
    CRowTable(rows).Print();
}

void PrintRowsJson(CBrowseRows& rows)
{
    const std::vector<std::size_t> shown = ShownColumns(rows);
    CJsonWriter json;
    json.BeginArray();
    for (int row = 0; HasRow(rows, row); row++)
    {
        json.BeginObject();
        for (const std::size_t column : shown)
        {
            json.Key(rows.GetColumns()[column].m_Heading);
            WriteCell(json, rows.GetText(row, column), rows.GetColumns()[column].m_IsNumeric);
        }
        json.EndObject();
        if (row % FLUSH_ROWS == 0)
            json.Flush();
    }
    json.EndArray();
    json.Flush();
    PrintBytes("\n");
}

} // namespace utility
