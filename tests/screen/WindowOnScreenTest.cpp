#include "platform/base/Rect.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowRecords.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/Monitor.h"
#include "platform/ui/controls/Edit.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>

namespace utility
{
namespace
{

/// Until the window system has done it; false, after a long while, if it never does.
bool WaitFor(const std::function<bool()>& condition)
{
    constexpr DWORD LIMIT = 20000;
    IMessageLoop& loop = GetMessageLoop();
    const UINT timer = loop.SetTimer(5, [] {}); // the condition is asked after each tick
    const bool isMet = loop.RunUntil(condition, LIMIT);
    loop.KillTimer(timer);
    return isMet;
}

class CNotingWnd : public CWnd
{
public:
    std::vector<WPARAM> m_Activations;
    WPARAM m_LastSize = SIZE_RESTORED;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_ACTIVATE)
            m_Activations.push_back(wParam);
        if (message == WM_SIZE)
            m_LastSize = wParam;
        if (message == WM_GETMINMAXINFO)
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = CPoint(200, 150);
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class WindowOnScreenTest : public testing::Test
{
protected:
    static constexpr DWORD STYLE =
        WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX | WS_MINIMIZEBOX;

    /// Makes a window, shows it and waits until it is the active one.
    static void Open(CWnd& window, const CRect& place)
    {
        ASSERT_TRUE(window.CreateEx(0, u"Frame", u"Host", STYLE, place, nullptr));
        window.ShowWindow(SW_SHOW);
        window.SetForegroundWindow();
        ASSERT_TRUE(WaitFor([&] { return CWnd::GetActiveWindow() == &window; }));
    }
};

TEST_F(WindowOnScreenTest, ActivationGoesToTheWindowThatIsBroughtToTheTop)
{
    CNotingWnd first;
    CNotingWnd second;
    Open(first, CRect(50, 50, 450, 350));
    Open(second, CRect(500, 50, 900, 350));
    first.SetForegroundWindow();

    EXPECT_TRUE(WaitFor([&] { return CWnd::GetActiveWindow() == &first; }));
    EXPECT_EQ(second.m_Activations, (std::vector<WPARAM>{WA_ACTIVE, WA_INACTIVE}));
    EXPECT_EQ(first.m_Activations, (std::vector<WPARAM>{WA_ACTIVE, WA_INACTIVE, WA_ACTIVE}));
}

TEST_F(WindowOnScreenTest, MaximisingFillsTheWorkAreaAndRestoringGivesThePlaceBack)
{
    CNotingWnd window;
    Open(window, CRect(100, 100, 500, 400));
    const CRect before = window.GetWindowRect();
    window.ShowWindow(SW_MAXIMIZE);

    ASSERT_TRUE(WaitFor([&] { return window.m_LastSize == SIZE_MAXIMIZED; }));
    EXPECT_TRUE(window.IsZoomed());
    const CRect area = MonitorFromPoint(CPoint(100, 100)).m_WorkArea;
    EXPECT_TRUE(WaitFor([&] { return window.GetWindowRect().Width() >= area.Width(); }));
    WINDOWPLACEMENT placement;
    window.GetWindowPlacement(placement);
    EXPECT_EQ(placement.showCmd, static_cast<UINT>(SW_SHOWMAXIMIZED));
    EXPECT_EQ(placement.rcNormalPosition.Size(), before.Size());

    window.ShowWindow(SW_RESTORE);
    EXPECT_TRUE(WaitFor([&] { return window.GetWindowRect().Size() == before.Size(); }));
    EXPECT_FALSE(window.IsZoomed());
}

TEST_F(WindowOnScreenTest, AWindowMovedWithItsFrameStandsWhereItWasPut)
{
    CNotingWnd window;
    Open(window, CRect(100, 100, 500, 400));
    const CRect wanted(CPoint(220, 180), CSize(360, 280));
    window.MoveWindow(wanted);

    EXPECT_TRUE(WaitFor([&] { return window.GetWindowRect() == wanted; }));
    EXPECT_LT(window.GetClientRect().Height(), wanted.Height()); // the frame's title is above
    window.MoveWindow(CRect(220, 180, 230, 190));
    EXPECT_TRUE(WaitFor([&] { return window.GetWindowRect().Size() == CSize(200, 150); }));
}

TEST_F(WindowOnScreenTest, FocusComesWithActivationAndStaysWithItsWindow)
{
    CNotingWnd first;
    CNotingWnd second;
    CWnd edit;
    Open(first, CRect(50, 50, 450, 350));
    ASSERT_TRUE(
        edit.CreateEx(0, u"Field", u"", WS_CHILD | WS_VISIBLE, CRect(10, 10, 90, 30), &first));
    edit.SetFocus();
    EXPECT_EQ(CWnd::GetFocus(), &edit);
    Open(second, CRect(500, 50, 900, 350));
    EXPECT_NE(CWnd::GetFocus(), &edit);
    first.SetForegroundWindow();

    EXPECT_TRUE(WaitFor([&] { return CWnd::GetFocus() == &edit; }));
}

TEST_F(WindowOnScreenTest, IdleWorkSeesThatAKeyWaitsAndLeavesItThere)
{
    CNotingWnd window;
    CEdit edit;
    Open(window, CRect(50, 50, 450, 350));
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 200, 30), &window, 1));
    edit.SetFocus();
    IMessageLoop& loop = GetMessageLoop();
    ASSERT_TRUE(WaitFor([&] { return !loop.IsMessageWaiting(); }));
    ASSERT_EQ(std::system("xdotool key a key b"), 0);

    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!loop.IsMessageWaiting() && std::chrono::steady_clock::now() < end)
    {
    }
    EXPECT_TRUE(loop.IsMessageWaiting());
    EXPECT_EQ(edit.GetWindowText(), u"");
    EXPECT_TRUE(WaitFor([&] { return edit.GetWindowText() == u"ab"; }));
    EXPECT_FALSE(loop.IsMessageWaiting());
}

} // namespace
} // namespace utility
