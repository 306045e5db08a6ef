#include "dialogs/SqueezeDialog.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(SqueezeDialogTest, MovesUpWhatBeginsBelowTheTopAndHidesWhatLiesWithin)
{
    constexpr CRect GAP(20, 100, 220, 140); // a group box of 40 pixels
    struct CCase
    {
        const char* m_Name;
        CRect m_Child;
        CRect m_After;
        bool m_LiesInside;
    };
    const CCase cases[] = {
        {"above", {20, 50, 220, 90}, {20, 50, 220, 90}, false},
        {"beginning at the same top, beside", {230, 100, 300, 120}, {230, 100, 300, 120}, false},
        {"beginning a pixel lower, beside", {230, 101, 300, 120}, {230, 61, 300, 80}, false},
        {"below", {20, 150, 220, 170}, {20, 110, 220, 130}, false},
        {"inside", {30, 110, 100, 130}, {30, 70, 100, 90}, true},
        {"filling it", {20, 100, 220, 140}, {20, 100, 220, 140}, true},
        {"a pixel wider to the right", {30, 110, 221, 130}, {30, 70, 221, 90}, false},
        {"a pixel lower", {30, 110, 100, 141}, {30, 70, 100, 101}, false},
    };

    for (const CCase& row : cases)
    {
        SCOPED_TRACE(row.m_Name);
        const CSqueezedChild hidden = SqueezeChild(GAP, row.m_Child, true);
        EXPECT_EQ(hidden.m_Place, row.m_After);
        EXPECT_EQ(hidden.m_Hides, row.m_LiesInside);
        EXPECT_EQ(SqueezeChild(GAP, row.m_Child, false), (CSqueezedChild{row.m_After, false}));
    }
}

} // namespace
} // namespace utility
