#include "dialogs/ResizeLayout.h"

#include "platform/base/Rect.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace utility
{
namespace
{

std::string Print(const CRect& place)
{
    return std::to_string(place.left) + "," + std::to_string(place.top) + "," +
           std::to_string(place.right) + "," + std::to_string(place.bottom);
}

TEST(ResizeLayoutTest, PlacesEachChildByWhereItStandsToTheStretchControl)
{
    constexpr CRect REFERENCE(100, 100, 300, 200);
    constexpr CSize CHANGE(50, 30);
    struct CCase
    {
        const char* m_Name;
        CRect m_Before;
        CRect m_After;
        bool m_HasFixedSize = false;
    };
    const CCase cases[] = {
        {"label above it stays", {100, 80, 200, 95}, {100, 80, 200, 95}},
        {"label at its left stays", {10, 110, 90, 130}, {10, 110, 90, 130}},
        {"button at its right moves right", {310, 100, 390, 124}, {360, 100, 440, 124}},
        {"button below it moves down", {120, 210, 200, 234}, {120, 240, 200, 264}},
        {"button at the corner moves both ways", {310, 210, 390, 234}, {360, 240, 440, 264}},
        {"field above that reaches its right grows", {100, 80, 300, 95}, {100, 80, 350, 95}},
        {"field above that begins before it grows", {10, 80, 310, 95}, {10, 80, 360, 95}},
        {"field below that spans it grows right", {10, 210, 300, 230}, {10, 240, 350, 260}},
        {"list beside that spans it grows down", {310, 90, 390, 200}, {360, 90, 440, 230}},
        {"group around it grows both ways", {90, 90, 310, 210}, {90, 90, 360, 240}},
        {"one that begins at its right grows", {300, 100, 390, 124}, {300, 100, 440, 124}},
        {"one a pixel behind its right moves", {301, 100, 390, 124}, {351, 100, 440, 124}},
        {"one that ends a pixel before its right stays", {10, 80, 299, 95}, {10, 80, 299, 95}},
        {"one that ends a pixel above its bottom stays", {10, 150, 90, 199}, {10, 150, 90, 199}},
        {"one that begins inside its height moves", {10, 150, 90, 200}, {10, 180, 90, 230}},
        {"one below with its left grows as well", {100, 210, 200, 234}, {100, 210, 200, 264}},
        {"one inside it stays", {100, 110, 200, 190}, {100, 110, 200, 190}},
        {"picture around it keeps its left and moves down",
         {90, 90, 310, 210},
         {90, 120, 360, 240},
         true},
        {"picture at its left side keeps its left", {100, 80, 310, 95}, {100, 80, 360, 95}, true},
        {"spin button within its width moves", {280, 80, 300, 95}, {330, 80, 350, 95}, true},
        {"picture below with its left moves", {100, 210, 200, 234}, {100, 240, 200, 264}, true},
    };
    const CResizeLayout layout(REFERENCE, CHANGE);

    for (const CCase& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        EXPECT_EQ(Print(layout.Place(row.m_Before, row.m_HasFixedSize)), Print(row.m_After));
    }
    EXPECT_EQ(Print(layout.PlaceStretchControl()), "100,100,350,230");
}

// Children in the cells of a grid, some spanning several, with a gap of at least a pixel.
class CRandomDialog
{
public:
    static constexpr int CELL = 40;
    static constexpr int COUNT = 8; // cells a side

    explicit CRandomDialog(std::uint32_t seed) : m_Random(seed)
    {
        for (int tries = 0; tries < 40; ++tries)
            TryAdd();
    }

    std::vector<CRect> m_Children; // the first is the stretch control
    std::mt19937 m_Random;

    int Roll(int below) { return static_cast<int>(m_Random() % static_cast<unsigned>(below)); }

private:
    void TryAdd()
    {
        const int column = Roll(COUNT);
        const int row = Roll(COUNT);
        const int width = 1 + Roll(std::min(4, COUNT - column));
        const int height = 1 + Roll(std::min(4, COUNT - row));
        const CRect child(column * CELL + 1 + Roll(9), row * CELL + 1 + Roll(9),
                          (column + width) * CELL - Roll(9), (row + height) * CELL - Roll(9));
        if (IsFree(child) && !SharesLeftBelow(child))
            m_Children.push_back(child);
    }
    bool IsFree(const CRect& child) const
    {
        CRect overlap;
        for (const CRect& other : m_Children)
        {
            if (overlap.IntersectRect(child, other))
                return false;
        }
        return true;
    }
    bool SharesLeftBelow(const CRect& child) const
    {
        return !m_Children.empty() && child.left == m_Children.front().left &&
               child.top > m_Children.front().top;
    }
};

void LayOut(std::vector<CRect>& children, CSize change)
{
    const CResizeLayout layout(children.front(), change);
    for (CRect& child : children)
        child = layout.Place(child, false);
    children.front() = layout.PlaceStretchControl();
}

void ExpectApartAndInside(const std::vector<CRect>& children, const CRect& client)
{
    for (std::size_t i = 0; i < children.size(); ++i)
    {
        CRect common;
        common.IntersectRect(children[i], client);
        EXPECT_EQ(Print(common), Print(children[i])) << "child " << i << " lies outside";
        for (std::size_t j = 0; j < i; ++j)
        {
            EXPECT_FALSE(common.IntersectRect(children[i], children[j]))
                << "children " << i << " and " << j << " overlap: " << Print(children[i]) << " and "
                << Print(children[j]);
        }
    }
}

TEST(ResizeLayoutTest, KeepsChildrenApartAndInsideWhateverTheSteps)
{
    for (std::uint32_t seed = 1; seed <= 300 && !testing::Test::HasFailure(); ++seed)
    {
        SCOPED_TRACE(seed);
        CRandomDialog dialog(seed);
        const std::vector<CRect> before = dialog.m_Children;
        constexpr int SIDE = CRandomDialog::CELL * CRandomDialog::COUNT;
        CSize size(SIDE, SIDE);

        for (int step = 0; step < 20; ++step)
        {
            // A window never gets smaller than it was at first.
            const CSize next(SIDE + dialog.Roll(500), SIDE + dialog.Roll(500));
            LayOut(dialog.m_Children, {next.cx - size.cx, next.cy - size.cy});
            size = next;
            ExpectApartAndInside(dialog.m_Children, {{0, 0}, size});
        }
        LayOut(dialog.m_Children, {SIDE - size.cx, SIDE - size.cy});

        EXPECT_EQ(dialog.m_Children, before) << "back at the first size nothing has moved";
    }
}

TEST(ResizeLayoutTest, GivesGrowthToTheFirstOfTwoAndPassesOnWhatOneCannotTake)
{
    struct CCase
    {
        const char* m_Name;
        CStretchChoice m_Choice;
        int m_Change;
        bool m_TakesSecond;
    };
    const CCase cases[] = {
        {"grows the first", {true, false, 100, 80, 60, 40}, 10, false},
        {"Shift grows the second", {true, true, 100, 80, 60, 40}, 10, true},
        {"first down to its minimum", {true, false, 100, 80, 60, 40}, -20, false},
        {"first below its minimum", {true, false, 100, 80, 60, 40}, -21, true},
        {"second down to its minimum", {true, true, 100, 80, 60, 40}, -20, true},
        {"second below its minimum", {true, true, 100, 90, 60, 55}, -6, false},
        {"both below", {true, true, 100, 95, 60, 55}, -6, true},
        {"second without a minimum", {true, true, 100, 80, 60, 0}, 10, false},
        {"one stretch control", {false, true, 100, 80, 60, 40}, -50, false},
    };

    for (const CCase& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        EXPECT_EQ(TakesSecondStretchControl(row.m_Choice, row.m_Change), row.m_TakesSecond);
    }
}

} // namespace
} // namespace utility
