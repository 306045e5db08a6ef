#pragma once

#include "platform/base/Colour.h"
#include "platform/base/Export.h"
#include "platform/base/Rect.h"
#include "platform/base/Types.h"

#include <vector>

namespace utility
{

/// Colours in rows of equal squares, as a well offers them: which square stands where, and where
/// the arrow keys lead. Squares are numbered from 0, row by row; -1 is none. Sizes are pixels.
class UTILITY_UI_API CColourPalette
{
public:
    static constexpr int CELL = 20;  // with the gap around the colour
    static constexpr int MARGIN = 4; // around all cells

    /// Forty colours in rows of eight: greys, then from dark to pale.
    CColourPalette();
    CColourPalette(std::vector<COLORREF> colours, int columns);

    int GetCount() const { return static_cast<int>(m_Colours.size()); }
    COLORREF GetColour(int cell) const { return m_Colours[static_cast<std::size_t>(cell)]; }
    int Find(COLORREF colour) const;

    CSize GetSize() const;
    CRect GetCellPlace(int cell) const;
    int HitTest(CPoint point) const;

    /// Where a key leads from a cell, or into the palette from none. Arrows stop at the edges, left
    /// and right go on in the row before or behind; a key that is no arrow, Home or End stays.
    int Step(int cell, UINT key) const;

private:
    int GetRowCount() const { return (GetCount() + m_Columns - 1) / m_Columns; }

    std::vector<COLORREF> m_Colours;
    int m_Columns;
};

} // namespace utility
