#include "dialogs/WindowPlacement.h"
#include "dialogs/WindowPosition.h"
#include "platform/base/Rect.h"
#include "platform/system/window/WindowStyles.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/Monitor.h"
#include "platform/ui/SystemMetrics.h"

#include "support/PrintText.h"
#include "support/SettingsSandbox.h"
#include "support/ui/Widgets.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

// As tests/data/screens/two.json has them: the second at the right, higher up and higher.
constexpr CRect LEFT(0, 0, 1000, 800);
constexpr CRect RIGHT(1000, -200, 2200, 700);
constexpr char16_t KEY[] = u"Viewer";

class TwoMonitorsTest : public testing::Test
{
protected:
    TwoMonitorsTest()
    {
        Show(m_First, {100, 100, 400, 300});
        Show(m_Second, {1300, 50, 1600, 250});
    }
    static void Show(CWnd& window, const CRect& place)
    {
        const DWORD style = WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;
        ASSERT_TRUE(window.CreateEx(0, u"Frame", u"", style, place, nullptr));
        window.ShowWindow(SW_SHOWNORMAL);
        Settle();
    }
    static bool IsOn(const CRect& monitor, const CWnd& window)
    {
        return monitor.PtInRect(window.GetWindowRect().CenterPoint());
    }

    const CSettingsSandbox m_Settings;
    CWnd m_First;
    CWnd m_Second;
};

TEST_F(TwoMonitorsTest, AreKnownWithTheirPlaces)
{
    const std::vector<CMonitor> monitors = GetMonitors();
    ASSERT_EQ(monitors.size(), 2u);
    EXPECT_EQ(monitors[0].m_Area, LEFT);
    EXPECT_EQ(monitors[1].m_Area, RIGHT);
    EXPECT_EQ(GetSystemMetrics(SM_CMONITORS), 2);
    EXPECT_EQ(GetVirtualScreen(), CRect(0, -200, 2200, 800));
    EXPECT_EQ(MonitorFromPoint({1500, 790}).m_Area, RIGHT) << "below it, yet nearer";
    EXPECT_EQ(MonitorFromPoint({10, -100}).m_Area, LEFT);
}

TEST_F(TwoMonitorsTest, WindowsSideBySideStayOnTheirMonitorsMaximised)
{
    for (const bool isTurned : {false, true})
    {
        SCOPED_TRACE(isTurned);
        CWnd first;
        CWnd second;
        Show(first, isTurned ? CRect(1300, 50, 1600, 250) : CRect(100, 100, 400, 300));
        Show(second, isTurned ? CRect(100, 100, 400, 300) : CRect(1300, 50, 1600, 250));

        ArrangeSideBySide(first.GetSafeHwnd(), second.GetSafeHwnd());
        Settle();

        EXPECT_TRUE(first.IsZoomed());
        EXPECT_TRUE(second.IsZoomed());
        EXPECT_TRUE(IsOn(isTurned ? RIGHT : LEFT, first));
        EXPECT_TRUE(IsOn(isTurned ? LEFT : RIGHT, second));
    }
}

TEST_F(TwoMonitorsTest, APlaceOnTheSecondIsKeptAndOneBetweenThemIsMovedInside)
{
    SaveWindowPosition(m_Second, KEY);
    CRect kept;
    EXPECT_TRUE(GetWindowPosition(KEY, kept));
    EXPECT_EQ(kept, m_Second.GetWindowRect());

    const CSize size = m_First.GetWindowRect().Size();
    m_First.MoveWindow(CRect(CPoint(1500, 650), size));
    EXPECT_TRUE(MoveWindowOnScreen(m_First));
    EXPECT_EQ(m_First.GetWindowRect(), CRect(CPoint(1500, RIGHT.bottom - size.cy), size));
    m_First.MoveWindow(CRect(CPoint(900, 100), size));
    EXPECT_TRUE(MoveWindowOnScreen(m_First)) << "its corner lies on the first";
    EXPECT_EQ(m_First.GetWindowRect(), CRect(CPoint(LEFT.right - size.cx, 100), size));
}

} // namespace
} // namespace utility
