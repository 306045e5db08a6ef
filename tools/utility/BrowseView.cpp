#include "BrowseView.h"

#include "ScreenWidth.h"
#include "ToolOutput.h"

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
    CCells headings;
    for (const std::size_t column : m_Shown)
        headings.push_back(Printable(m_Rows.GetColumns()[column].m_Heading));
    Widen(headings);

    const int end = std::min(m_Rows.GetCount(), m_Top + GetBodyLines());
    std::vector<CCells> body;
    for (int row = m_Top; row < end; row++)
        Widen(body.emplace_back(ReadRow(row)));

    std::vector<CScreenLine> lines = {{ComposeLine(headings), ELook::Heading}};
    for (int row = m_Top; row < end; row++)
        lines.push_back({ComposeLine(body[static_cast<std::size_t>(row - m_Top)]),
                         row == m_Current ? ELook::Current : ELook::Plain});
    lines.resize(static_cast<std::size_t>(GetBodyLines()) + 1, {PadToWidth(CString(), m_Width)});
    return lines;
}

/// The texts of a row, one a shown column; those left of the screen are not read.
CBrowseView::CCells CBrowseView::ReadRow(int row)
{
    CCells cells(m_Shown.size());
    for (std::size_t place = m_Left; place < m_Shown.size(); place++)
        cells[place] = Printable(m_Rows.GetText(row, m_Shown[place]));
    return cells;
}

void CBrowseView::Widen(const CCells& cells)
{
    for (std::size_t place = m_Left; place < cells.size(); place++)
        m_Widths[place] =
            std::max(m_Widths[place], std::min(ScreenWidth(cells[place]), MAX_COLUMN_WIDTH));
}

CString CBrowseView::ComposeLine(const CCells& cells) const
{
    CString line;
    int left = m_Width;
    for (std::size_t place = m_Left; place < cells.size() && left > 0; place++)
    {
        const int width = std::min(m_Widths[place], left);
        const CString text = CutToWidth(cells[place], width);
        const bool isNumber = m_Rows.GetColumns()[m_Shown[place]].m_IsNumeric;
        const CString before(u' ', isNumber ? width - ScreenWidth(text) : 0);
        line += PadToWidth(before + text, std::min(width + GAP_WIDTH, left));
        left -= width + GAP_WIDTH;
    }
    return PadToWidth(line, m_Width);
}

} // namespace utility
