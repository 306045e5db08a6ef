#include "dialogs/DpiScale.h"

#include "platform/ui/SystemMetrics.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(DpiScaleTest, TakesAScreenThatNearlyHas96DotsAsUnscaled)
{
    EXPECT_EQ(CalcUnscaleFactor(96), 1.0);
    EXPECT_EQ(CalcUnscaleFactor(192), 0.5);
    EXPECT_EQ(CalcUnscaleFactor(120), 0.8);
    EXPECT_EQ(CalcUnscaleFactor(97), 96.0 / 97) << "0.9897: a hundredth off";
    EXPECT_GT(CalcUnscaleFactor(72), 1.3);
}

TEST(DpiScaleTest, LeavesScalingToTheWindowSystem)
{
    InitDpi();

    EXPECT_FALSE(IsDpiScaling());
    EXPECT_EQ(DpiUnScale(0), 0);
    EXPECT_EQ(DpiUnScale(137), 137);
    EXPECT_EQ(GetAssumedScreenWidthInMM(), MulDiv(GetSystemMetrics(SM_CXSCREEN), 254, 960));
}

} // namespace
} // namespace utility
