#include "platform/ui/Monitor.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(MonitorTest, APlaceIsShiftedInsideWithItsTopLeftCornerFirst)
{
    constexpr CRect AREA(0, 0, 1000, 760);
    struct CCase
    {
        const char* m_Name;
        CRect m_Before;
        CRect m_After;
    };
    const CCase cases[] = {
        {"inside stays", {0, 0, 1000, 760}, {0, 0, 1000, 760}},
        {"below", {10, 700, 110, 800}, {10, 660, 110, 760}},
        {"above", {10, -50, 110, 50}, {10, 0, 110, 100}},
        {"right", {950, 10, 1050, 50}, {900, 10, 1000, 50}},
        {"left", {-30, 10, 70, 50}, {0, 10, 100, 50}},
        {"larger than the area", {-100, -100, 1100, 900}, {0, 0, 1200, 1000}},
        {"larger and to the right below", {50, 50, 1250, 1050}, {0, 0, 1200, 1000}},
    };

    for (const CCase& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        EXPECT_EQ(ShiftInside(row.m_Before, AREA), row.m_After);
    }
}

TEST(MonitorTest, APlaceIsKeptOnTheNearestScreen)
{
    const CRect area = GetPrimaryWorkArea();
    const struct
    {
        CRect m_Place;
        CRect m_Kept;
    } rows[] = {
        {{10, 20, 110, 70}, {10, 20, 110, 70}},
        {{-500, -500, -400, -400}, {area.left, area.top, area.left + 100, area.top + 100}},
        {{99000, 99000, 99100, 99050},
         {area.right - 100, area.bottom - 50, area.right, area.bottom}},
        {{5, 5, 99000, 99000}, {area.left, area.top, area.left + 98995, area.top + 98995}},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Place.left);
        EXPECT_EQ(KeepOnScreen(row.m_Place), row.m_Kept);
    }
}

} // namespace
} // namespace utility
