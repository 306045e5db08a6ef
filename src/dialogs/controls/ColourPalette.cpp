#include "dialogs/controls/ColourPalette.h"

#include "platform/system/window/VirtualKeys.h"

#include <algorithm>
#include <utility>

namespace utility
{

namespace
{

constexpr int DEFAULT_COLUMNS = 8;

// Each row goes through grey, red, orange, yellow, green, cyan, blue and violet.
constexpr COLORREF DEFAULT_COLOURS[] = {
    RGB(0, 0, 0),       RGB(64, 64, 64),    RGB(96, 96, 96),    RGB(128, 128, 128),
    RGB(160, 160, 160), RGB(192, 192, 192), RGB(224, 224, 224), RGB(255, 255, 255),
    RGB(48, 48, 64),    RGB(128, 0, 0),     RGB(128, 64, 0),    RGB(128, 128, 0),
    RGB(0, 128, 0),     RGB(0, 128, 128),   RGB(0, 0, 128),     RGB(128, 0, 128),
    RGB(80, 80, 112),   RGB(192, 0, 0),     RGB(192, 96, 0),    RGB(192, 192, 0),
    RGB(0, 192, 0),     RGB(0, 192, 192),   RGB(0, 0, 192),     RGB(192, 0, 192),
    RGB(112, 112, 160), RGB(255, 0, 0),     RGB(255, 128, 0),   RGB(255, 255, 0),
    RGB(0, 255, 0),     RGB(0, 255, 255),   RGB(0, 0, 255),     RGB(255, 0, 255),
    RGB(208, 208, 232), RGB(255, 192, 192), RGB(255, 224, 192), RGB(255, 255, 192),
    RGB(192, 255, 192), RGB(192, 255, 255), RGB(192, 192, 255), RGB(255, 192, 255)};

} // namespace

CColourPalette::CColourPalette()
    : CColourPalette({std::begin(DEFAULT_COLOURS), std::end(DEFAULT_COLOURS)}, DEFAULT_COLUMNS)
{
}

CColourPalette::CColourPalette(std::vector<COLORREF> colours, int columns)
    : m_Colours(std::move(colours)),
      m_Columns(std::max(columns, 1))
{
}

int CColourPalette::Find(COLORREF colour) const
{
    const auto found = std::ranges::find(m_Colours, colour);
    return found == m_Colours.end() ? -1 : static_cast<int>(found - m_Colours.begin());
}

CSize CColourPalette::GetSize() const
{
    return {m_Columns * CELL + 2 * MARGIN, GetRowCount() * CELL + 2 * MARGIN};
}

CRect CColourPalette::GetCellPlace(int cell) const
{
    const CPoint corner(MARGIN + cell % m_Columns * CELL, MARGIN + cell / m_Columns * CELL);
    return {corner, CSize(CELL, CELL)};
}

int CColourPalette::HitTest(CPoint point) const
{
    const CPoint inside = point - CPoint(MARGIN, MARGIN);
    if (inside.x < 0 || inside.y < 0 || inside.x >= m_Columns * CELL)
        return -1;
    const int cell = inside.y / CELL * m_Columns + inside.x / CELL;
    return cell < GetCount() ? cell : -1;
}

int CColourPalette::Step(int cell, UINT key) const
{
    const int last = GetCount() - 1;
    const auto stay = [cell, last](int next)
    {
        return next < 0 || next > last ? cell : next;
    };
    switch (key)
    {
    case VK_LEFT:
        return cell < 0 ? last : stay(cell - 1);
    case VK_RIGHT:
        return stay(cell + 1);
    case VK_UP:
        return cell < 0 ? last : stay(cell - m_Columns);
    case VK_DOWN:
        return cell < 0 ? stay(0) : stay(cell + m_Columns);
    case VK_HOME:
        return stay(0);
    case VK_END:
        return last;
    default:
        return cell;
    }
}

} // namespace utility
