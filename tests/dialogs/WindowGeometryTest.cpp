#include "dialogs/WindowGeometry.h"

#include "platform/ui/Monitor.h"

#include <gtest/gtest.h>

#include <climits>

namespace utility
{
namespace
{

// Two monitors side by side, the second higher up; a panel covers the bottom of the first.
constexpr CMonitor LEFT{{0, 0, 1000, 800}, {0, 0, 1000, 760}};
constexpr CMonitor RIGHT{{1000, -200, 2200, 700}, {1000, -200, 2200, 700}};
constexpr CRect SCREEN(0, -200, 2200, 800);

TEST(WindowGeometryTest, TakesAKeptPlaceOnlyIfAllSidesLieOnTheScreenInOrder)
{
    struct CCase
    {
        const char* m_Name;
        CRect m_Place;
        bool m_IsOnScreen;
    };
    const CCase cases[] = {
        {"inside", {100, 100, 500, 400}, true},
        {"the whole screen but its last pixels", {0, -200, 2199, 799}, true},
        {"no area", {100, 100, 100, 100}, true},
        {"right at the edge of the screen", {100, 100, 2200, 400}, false},
        {"bottom at the edge of the screen", {100, 100, 500, 800}, false},
        {"left of the screen", {-1, 100, 500, 400}, false},
        {"above the screen", {100, -201, 500, 400}, false},
        {"on a monitor at the right that is gone", {2300, 100, 2700, 400}, false},
        {"right before left", {500, 100, 499, 400}, false},
        {"bottom above top", {100, 400, 500, 399}, false},
        {"the largest numbers", {INT_MIN, INT_MIN, INT_MAX, INT_MAX}, false},
    };

    for (const CCase& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        EXPECT_EQ(IsPlaceOnScreen(row.m_Place, SCREEN), row.m_IsOnScreen);
    }
}

TEST(WindowGeometryTest, CentresASizeAlsoOneLargerThanTheArea)
{
    EXPECT_EQ(CentreInside({100, 100, 300, 200}, {50, 20}), CRect(175, 140, 225, 160));
    EXPECT_EQ(CentreInside({100, 100, 300, 200}, {400, 300}), CRect(0, 0, 400, 300));
}

TEST(WindowGeometryTest, GivesEachWindowAHalfOfOneMonitorOrOneOfTwo)
{
    constexpr CRect ON_LEFT(100, 100, 500, 400);
    constexpr CRect ON_RIGHT(1200, 100, 1900, 500);
    constexpr CRect NOWHERE(5000, 5000, 5100, 5100);
    struct CCase
    {
        const char* m_Name;
        CRect m_First;
        CRect m_Second;
        bool m_IsSecondAtLeft;
    };
    const CCase cases[] = {
        {"each on its monitor", ON_LEFT, ON_RIGHT, false},
        {"the other way round", ON_RIGHT, ON_LEFT, true},
        {"both at the left", ON_LEFT, ON_LEFT, false},
        {"both at the right", ON_RIGHT, ON_RIGHT, false},
        {"the second at the left, the first nowhere", NOWHERE, ON_LEFT, true},
        {"places unknown", {}, {}, false},
    };

    for (const CCase& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        const CSideBySide shared = ShareMonitors(LEFT, RIGHT, row.m_First, row.m_Second);
        EXPECT_EQ(shared.m_First, row.m_IsSecondAtLeft ? RIGHT.m_WorkArea : LEFT.m_WorkArea);
        EXPECT_EQ(shared.m_Second, row.m_IsSecondAtLeft ? LEFT.m_WorkArea : RIGHT.m_WorkArea);
    }
    EXPECT_EQ(SplitInHalves({0, 20, 1001, 760}),
              (CSideBySide{{0, 20, 500, 760}, {500, 20, 1001, 760}}));
}

} // namespace
} // namespace utility
