#include "dialogs/WindowPosition.h"

#include "dialogs/PeersTest.h"
#include "dialogs/WindowPlacement.h"
#include "frame/AppInstance.h"
#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/WindowStyles.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/InputState.h"
#include "platform/ui/Monitor.h"
#include "settings/AppRegistry.h"

#include "support/PrintText.h"
#include "support/SettingsSandbox.h"
#include "support/ui/Widgets.h"

namespace utility
{
namespace
{

constexpr char16_t KEY[] = u"Viewer";
constexpr DWORD FRAME = WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;

class WindowPositionTest : public CPeersTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Window.CreateEx(0, u"Frame", u"", FRAME, {40, 50, 340, 250}, nullptr));
        m_Window.ShowWindow(SW_SHOWNORMAL);
    }

    const CSettingsSandbox m_Settings;
    CWnd m_Window;
};

INSTANTIATE_TEST_SUITE_P(Peers, WindowPositionTest, AllPeers(), NamePeers);

TEST_P(WindowPositionTest, GivesBackWhatWasSavedAndNothingBefore)
{
    CRect place(1, 2, 3, 4);
    EXPECT_FALSE(GetWindowPosition(KEY, place));
    EXPECT_EQ(place, CRect(1, 2, 3, 4));

    SaveWindowPosition(m_Window, KEY);
    EXPECT_TRUE(GetWindowPosition(KEY, place));
    EXPECT_EQ(place, m_Window.GetWindowRect());
}

TEST_P(WindowPositionTest, StopsAtTheFirstSideThatIsMissing)
{
    SaveWindowPosition(m_Window, KEY);
    for (const char16_t* side : {u"Top", u"Bottom", u"Left", u"Right"})
    {
        SCOPED_TRACE(testing::PrintToString(CString(side)));
        CAppRegistry settings(KEY);
        int kept = 0;
        ASSERT_TRUE(settings.GetValue(side, kept));
        settings.DeleteValue(side);
        CRect place(1, 2, 3, 4);
        EXPECT_FALSE(GetWindowPosition(KEY, place));
        EXPECT_EQ(place, CRect(1, 2, 3, 4));
        settings.SetValue(side, kept);
    }
}

TEST_P(WindowPositionTest, AMaximisedWindowKeepsThePlaceThatItHadBefore)
{
    SaveWindowPosition(m_Window, KEY);
    CRect before;
    ASSERT_TRUE(GetWindowPosition(KEY, before));
    m_Window.ShowWindow(SW_MAXIMIZE);

    SaveWindowPosition(m_Window, KEY);
    SaveWindowMaximised(m_Window, KEY);

    CRect place;
    EXPECT_TRUE(GetWindowPosition(KEY, place));
    EXPECT_EQ(place, before);
    EXPECT_TRUE(GetWindowMaximised(KEY));
    SaveWindowMaximised(false, KEY);
    EXPECT_FALSE(GetWindowMaximised(KEY));
    EXPECT_FALSE(GetWindowMaximised(u"Nobody"));
}

TEST_P(WindowPositionTest, SnapsTheSavedSizeToThePointer)
{
    SnapSavedWindowPositionToCursor(KEY); // nothing is saved yet
    EXPECT_FALSE(CAppRegistry(KEY).KeyExists());

    SaveWindowPosition(m_Window, KEY);
    SetCursorPos(100, 400); // where the window system lets it
    const CPoint pointer = GetCursorPos();
    SnapSavedWindowPositionToCursor(KEY);

    CAppRegistry settings(KEY);
    CRect place;
    settings.GetValue(u"Left", place.left);
    settings.GetValue(u"Top", place.top);
    settings.GetValue(u"Right", place.right);
    settings.GetValue(u"Bottom", place.bottom);
    EXPECT_EQ(CPoint(place.left, place.bottom), pointer);
    EXPECT_EQ(place.Size(), m_Window.GetWindowRect().Size());
}

TEST_P(WindowPositionTest, LaterInstancesKeepTheirOwnPlaces)
{
    SaveWindowPosition(m_Window, KEY);
    CAppInstance::SetEnabled(true);
    CAppInstance::SetInstance(2);
    CRect place;
    EXPECT_TRUE(GetWindowPosition(KEY, place)) << "the plain key, while there is no own one";
    const CRect before = place;

    m_Window.MoveWindow(before + CPoint(30, 0));
    SaveWindowPosition(m_Window, KEY);
    EXPECT_TRUE(GetWindowPosition(KEY, place));
    EXPECT_EQ(place, before + CPoint(30, 0));

    CAppInstance::SetInstance(0);
    EXPECT_TRUE(GetWindowPosition(KEY, place));
    EXPECT_EQ(place, before);
    CAppInstance::SetEnabled(false);
}

TEST_P(WindowPositionTest, MovesAWindowOntoTheScreenWithoutResizingIt)
{
    const CRect area = MonitorFromPoint({0, 0}).m_WorkArea;
    const CSize size = m_Window.GetWindowRect().Size();
    m_Window.MoveWindow(CRect({area.right - 50, area.bottom - 20}, size));

    EXPECT_TRUE(MoveWindowOnScreen(m_Window));
    EXPECT_EQ(m_Window.GetWindowRect(), CRect(area.BottomRight() - CPoint(size.cx, size.cy), size));
    EXPECT_FALSE(MoveWindowOnScreen(m_Window));
}

TEST_P(WindowPositionTest, CentresOverAParentOrTheMainMonitor)
{
    const CSize client = m_Window.GetClientRect().Size();
    CRect corner(0, 0, 0, 0);
    m_Window.ClientToScreen(corner);

    CRect centred;
    CentreWindow({7, 7, 107, 57}, &m_Window, centred);
    EXPECT_EQ(centred, CRect(corner.TopLeft() + CPoint((client.cx - 100) / 2, (client.cy - 50) / 2),
                             CSize(100, 50)));

    CentreWindow({7, 7, 107, 57}, nullptr, centred);
    EXPECT_EQ(centred.CenterPoint(), GetMonitors().front().m_Area.CenterPoint());
}

TEST_P(WindowPositionTest, ArrangesTwoWindowsInHalvesOfOneMonitor)
{
    ASSERT_EQ(GetMonitors().size(), 1u);
    CWnd other;
    ASSERT_TRUE(other.CreateEx(0, u"Frame", u"", FRAME, {90, 90, 340, 250}, nullptr));
    other.ShowWindow(SW_SHOWNORMAL);

    ArrangeSideBySide(m_Window.GetSafeHwnd(), other.GetSafeHwnd());

    const CRect left = m_Window.GetWindowRect();
    const CRect right = other.GetWindowRect();
    EXPECT_EQ(left.right, right.left);
    EXPECT_EQ(left.Height(), right.Height());
    EXPECT_LE(std::abs(left.Width() - right.Width()), 1);
    EXPECT_FALSE(m_Window.IsZoomed());
}

TEST_P(WindowPositionTest, BringsAWindowToTheTopAndThePointerWithIt)
{
    CWnd other;
    ASSERT_TRUE(other.CreateEx(0, u"Frame", u"", FRAME, {390, 390, 640, 550}, nullptr));
    other.ShowWindow(SW_SHOWNORMAL);
    SetCursorPos(10, 10);

    BringWindowToTop(m_Window, true, true);
    Settle();

    EXPECT_EQ(CWnd::GetActiveWindow(), &m_Window);
    EXPECT_TRUE(m_Window.GetWindowRect().PtInRect(GetCursorPos()));
}

} // namespace
} // namespace utility
