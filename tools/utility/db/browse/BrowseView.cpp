#include "utility/db/browse/BrowseView.h"

#include "utility/output/ScreenWidth.h"
#include "utility/output/ToolOutput.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr int MAX_COLUMN_WIDTH = 40;
constexpr int GAP_WIDTH = 2;

} // namespace

CBrowseView::CBrowseView(CBrowseRows& rows) : m_Rows(rows)
{
    const std::vector<CBrowseColumn>& columns = rows.GetColumns();
    for (std::size_t column = 0; column < columns.size(); column++)
    {
        if (!columns[column].m_IsShown)
            continue;
        m_Shown.push_back(column);
        m_Widths.push_back(0);
    }
}

void CBrowseView::Resize(int lines, int width)
{
    m_Lines = lines;
    m_Width = width;
    MoveTo(m_Current);
}

void CBrowseView::MoveTo(int row)
{
    m_Current = std::clamp(row, 0, std::max(m_Rows.GetCount() - 1, 0));
    const int lastTop = std::max(m_Rows.GetCount() - GetBodyLines(), 0); // no line is left empty
    m_Top = std::clamp(m_Top, std::max(m_Current - GetBodyLines() + 1, 0),
                       std::min(m_Current, lastTop));
}

void CBrowseView::MoveColumns(int columns)
{
    const int last = static_cast<int>(m_Shown.size()) - 1;
    m_Left = static_cast<std::size_t>(std::clamp(static_cast<int>(m_Left) + columns, 0, last));
}

std::vector<CScreenLine> CBrowseView::Compose()
{
    std::vector<CScreenLine> lines(static_cast<std::size_t>(GetBodyLines()) + 1);
    int left = m_Width; // columns of the screen
    for (std::size_t place = m_Left; place < m_Shown.size() && left > 0; place++)
    {
        const std::vector<CString> cells = ReadColumn(m_Shown[place]);
        for (const CString& cell : cells)
            m_Widths[place] =
                std::max(m_Widths[place], std::min(ScreenWidth(cell), MAX_COLUMN_WIDTH));
        const int width = std::min(m_Widths[place], left);
        const bool isNumber = m_Rows.GetColumns()[m_Shown[place]].m_IsNumeric;
        for (std::size_t line = 0; line < cells.size(); line++)
        {
            const CString text = CutToWidth(cells[line], width);
            const CString before(u' ', isNumber ? width - ScreenWidth(text) : 0);
            lines[line].m_Text += PadToWidth(before + text, std::min(width + GAP_WIDTH, left));
        }
        left -= width + GAP_WIDTH;
    }
    lines[0].m_Look = ELook::Heading;
    if (m_Rows.GetCount() > 0)
        lines[static_cast<std::size_t>(m_Current - m_Top) + 1].m_Look = ELook::Current;
    for (CScreenLine& line : lines)
        line.m_Text = PadToWidth(line.m_Text, m_Width);
    return lines;
}

std::vector<CString> CBrowseView::ReadColumn(std::size_t column)
{
    std::vector<CString> cells = {Printable(m_Rows.GetColumns()[column].m_Heading)};
    const int end = std::min(m_Rows.GetCount(), GetWantedCount());
    for (int row = m_Top; row < end; row++)
        cells.push_back(Printable(m_Rows.GetText(row, column)));
    return cells;
}

} // namespace utility
