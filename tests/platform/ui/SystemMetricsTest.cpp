#include "platform/ui/SystemMetrics.h"

#include "platform/base/Rect.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/BCGPVisualManager.h"
#include "platform/ui/Monitor.h"
#include "resources/MessageNames.h"

#include "support/ui/Widgets.h"

#include <QApplication>
#include <QPalette>
#include <gtest/gtest.h>

namespace utility
{
namespace
{

TEST(SystemMetricsTest, MulDivRoundsHalvesAwayFromZero)
{
    const struct
    {
        int m_Value;
        int m_Numerator;
        int m_Denominator;
        int m_Result;
    } rows[] = {{7, 1, 2, 4},   {-7, 1, 2, -4},   {7, -1, 2, -4},
                {7, 1, -2, -4}, {10, 96, 72, 13}, {100000, 100000, 100000, 100000},
                {1, 1, 3, 0},   {5, 2, 0, -1}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Value);
        EXPECT_EQ(MulDiv(row.m_Value, row.m_Numerator, row.m_Denominator), row.m_Result);
    }
}

TEST(SystemMetricsTest, TheVirtualScreenHoldsAllScreens)
{
    const CRect all(
        CPoint(GetSystemMetrics(SM_XVIRTUALSCREEN), GetSystemMetrics(SM_YVIRTUALSCREEN)),
        CSize(GetSystemMetrics(SM_CXVIRTUALSCREEN), GetSystemMetrics(SM_CYVIRTUALSCREEN)));
    EXPECT_EQ(GetSystemMetrics(SM_CMONITORS), static_cast<int>(GetMonitors().size()));
    for (const CMonitor& monitor : GetMonitors())
    {
        CRect both;
        EXPECT_TRUE(both.IntersectRect(all, monitor.m_Area));
        EXPECT_EQ(both, monitor.m_Area);
    }
    CRect work;
    EXPECT_TRUE(SystemParametersInfoW(SPI_GETWORKAREA, 0, &work));
    EXPECT_EQ(work, GetPrimaryWorkArea());
    EXPECT_FALSE(SystemParametersInfoW(4711, 0, &work));
    EXPECT_EQ(GetSystemMetrics(4711), 0);
}

class CThemedWnd : public CWnd
{
public:
    int m_Changes = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == MSG_CHANGE_VISUAL_MANAGER)
            ++m_Changes;
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

TEST(BCGPVisualManagerTest, FollowsTheDesktopsPaletteAndTellsAllWindows)
{
    CThemedWnd window;
    ASSERT_TRUE(window.Create(u"Frame", u"", 0, nullptr));
    const QPalette before = QApplication::palette();
    QPalette dark(Qt::white, QColor(30, 30, 30));
    dark.setColor(QPalette::Window, QColor(32, 33, 34));
    dark.setColor(QPalette::WindowText, QColor(240, 241, 242));
    QApplication::setPalette(dark);
    Settle();

    const CBCGPVisualManager& manager = *CBCGPVisualManager::GetInstance();
    EXPECT_EQ(manager.GetDialogBackground(), RGB(32, 33, 34));
    EXPECT_EQ(manager.GetDialogTextColor(), RGB(240, 241, 242));
    EXPECT_TRUE(manager.IsDark());
    EXPECT_EQ(window.m_Changes, 1);

    QApplication::setPalette(before);
    Settle();
    EXPECT_FALSE(manager.IsDark());
    EXPECT_EQ(window.m_Changes, 2);
}

TEST(BCGPVisualManagerTest, TellsWindowsWhenStylingIsSwitched)
{
    CThemedWnd window;
    ASSERT_TRUE(window.Create(u"Frame", u"", 0, nullptr));
    CBCGPVisualManager& manager = *CBCGPVisualManager::GetInstance();
    manager.EnableDialogStyling(false);
    manager.EnableDialogStyling(false);
    manager.EnableDialogStyling(true);

    EXPECT_EQ(window.m_Changes, 2);
    EXPECT_EQ(manager.ScaleByDPI(12), 12);
}

} // namespace
} // namespace utility
