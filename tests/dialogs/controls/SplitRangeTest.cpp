#include "dialogs/controls/SplitRange.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(SplitRangeTest, KeepsTheBarBetweenTheMinimumsAndLetsTheSecondPaneGiveWayFirst)
{
    struct CCase
    {
        const char* m_Name;
        CSplitRange m_Range;
        int m_Wanted;
        int m_Position;
    };
    const CCase cases[] = {
        {"between", {200, 6, 50, 40}, 100, 100},
        {"first minimum", {200, 6, 50, 40}, 10, 50},
        {"second minimum", {200, 6, 50, 40}, 190, 154},
        {"room for both alone", {96, 6, 50, 40}, 0, 50},
        {"no room for the second", {80, 6, 50, 40}, 70, 50},
        {"no room for the first", {40, 6, 50, 40}, 10, 34},
        {"no room for the bar", {4, 6, 50, 40}, 2, 0},
    };

    for (const CCase& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        EXPECT_EQ(row.m_Range.Clamp(row.m_Wanted), row.m_Position);
    }
}

TEST(SplitRangeTest, SharesANewLengthAsTheOldOne)
{
    const CSplitRange range{206, 6, 20, 20};

    EXPECT_EQ(range.Scale(50, 406), 100);
    EXPECT_EQ(range.Scale(50, 106), 25);
    EXPECT_EQ(range.Scale(50, 46), 20) << "never below the minimum";
    EXPECT_EQ(range.Scale(50, 206), 50);
    EXPECT_EQ((CSplitRange{0, 6, 20, 20}.Scale(50, 206)), 50) << "nothing to share yet";
}

} // namespace
} // namespace utility
