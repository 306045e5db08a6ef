#include "platform/base/Rect.h"

#include <gtest/gtest.h>

namespace utility
{

TEST(RectTest, JoiningAndCuttingTreatEmptyOnesAsNothing)
{
    const CRect a(0, 0, 10, 10);
    const CRect b(5, 5, 20, 8);
    const CRect beside(10, 0, 20, 10);
    const CRect empty(3, 3, 3, 9);
    CRect result;

    EXPECT_TRUE(result.UnionRect(a, b));
    EXPECT_EQ(result, CRect(0, 0, 20, 10));
    EXPECT_TRUE(result.UnionRect(empty, b));
    EXPECT_EQ(result, b);
    EXPECT_FALSE(result.UnionRect(empty, empty));
    EXPECT_TRUE(result.IsRectNull());

    EXPECT_TRUE(result.IntersectRect(a, b));
    EXPECT_EQ(result, CRect(5, 5, 10, 8));
    EXPECT_FALSE(result.IntersectRect(a, beside)); // an edge in common is no area
    EXPECT_TRUE(result.IsRectNull());
}

TEST(RectTest, RightAndBottomLieOutside)
{
    const CRect rect(1, 2, 4, 6);

    EXPECT_TRUE(rect.PtInRect({1, 2}));
    EXPECT_TRUE(rect.PtInRect({3, 5}));
    EXPECT_FALSE(rect.PtInRect({4, 5}));
    EXPECT_FALSE(rect.PtInRect({3, 6}));
    EXPECT_EQ(rect.CenterPoint(), CPoint(2, 4));
}

TEST(RectTest, SidesMoveAsTold)
{
    CRect rect(10, 20, 4, 6);

    rect.NormalizeRect();
    EXPECT_EQ(rect, CRect(4, 6, 10, 20));
    rect.InflateRect(1, 2);
    EXPECT_EQ(rect, CRect(3, 4, 11, 22));
    rect.DeflateRect(1, 2, 3, 4);
    EXPECT_EQ(rect, CRect(4, 6, 8, 18));
    rect.OffsetRect({-4, -6});
    EXPECT_EQ(rect, CRect(0, 0, 4, 12));
    EXPECT_EQ(rect + CPoint(1, 1) - CPoint(1, 1), rect);
}

} // namespace utility
