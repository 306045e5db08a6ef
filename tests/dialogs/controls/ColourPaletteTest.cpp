#include "dialogs/controls/ColourPalette.h"

#include "platform/system/window/VirtualKeys.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

// Two full rows of three and one with a single colour.
CColourPalette MakeSeven()
{
    return CColourPalette({1, 2, 3, 4, 5, 6, 7}, 3);
}

TEST(ColourPaletteTest, LeadsArrowKeysFromCellToCellAndStopsAtTheEdges)
{
    struct CCase
    {
        const char* m_Name;
        int m_From;
        UINT m_Key;
        int m_To;
    };
    const CCase cases[] = {
        {"right", 0, VK_RIGHT, 1},
        {"right into the next row", 2, VK_RIGHT, 3},
        {"right at the end", 6, VK_RIGHT, 6},
        {"left into the row before", 3, VK_LEFT, 2},
        {"left at the beginning", 0, VK_LEFT, 0},
        {"down", 1, VK_DOWN, 4},
        {"down where the last row is shorter", 4, VK_DOWN, 4},
        {"up", 4, VK_UP, 1},
        {"up in the first row", 2, VK_UP, 2},
        {"home", 5, VK_HOME, 0},
        {"end", 1, VK_END, 6},
        {"another key", 5, VK_RETURN, 5},
        {"right into it", -1, VK_RIGHT, 0},
        {"down into it", -1, VK_DOWN, 0},
        {"left into it", -1, VK_LEFT, 6},
        {"up into it", -1, VK_UP, 6},
    };
    const CColourPalette palette = MakeSeven();

    for (const CCase& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        EXPECT_EQ(palette.Step(row.m_From, row.m_Key), row.m_To);
    }
    EXPECT_EQ(CColourPalette({}, 3).Step(-1, VK_DOWN), -1) << "an empty palette leads nowhere";
}

TEST(ColourPaletteTest, FindsTheCellUnderAPoint)
{
    const CColourPalette palette = MakeSeven();
    for (int cell = 0; cell < palette.GetCount(); ++cell)
    {
        SCOPED_TRACE(cell);
        const CRect place = palette.GetCellPlace(cell);
        EXPECT_EQ(palette.HitTest(place.TopLeft()), cell);
        EXPECT_EQ(palette.HitTest(place.BottomRight() - CPoint(1, 1)), cell);
    }

    const CRect last = palette.GetCellPlace(6);
    for (const CPoint outside : {CPoint(0, 0), CPoint(last.right, last.top), CPoint(-5, 9),
                                 CPoint(last.left, last.bottom), CPoint(1000, 9)})
        EXPECT_EQ(palette.HitTest(outside), -1) << outside.x << ", " << outside.y;
    EXPECT_EQ(palette.GetSize(), CSize(3 * 20 + 8, 3 * 20 + 8));
}

TEST(ColourPaletteTest, OffersEachColourOnce)
{
    const CColourPalette palette;

    for (int cell = 0; cell < palette.GetCount(); ++cell)
        EXPECT_EQ(palette.Find(palette.GetColour(cell)), cell);
    EXPECT_EQ(palette.GetCount(), 40);
    EXPECT_EQ(palette.Find(RGB(1, 2, 3)), -1);
}

} // namespace
} // namespace utility
