#include "dialogs/WindowPlacement.h"

#include "dialogs/WindowGeometry.h"
#include "platform/base/String.h"
#include "platform/system/window/LiveWindows.h"
#include "platform/system/window/WindowRecords.h"
#include "platform/system/window/WindowStyles.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/InputState.h"
#include "platform/ui/Monitor.h"
#include "platform/ui/SystemMetrics.h"

namespace utility
{

namespace
{

// A panel at the bottom of the screen stays free.
CRect GetUsableScreen()
{
    CRect screen = GetVirtualScreen();
    CRect workArea;
    if (SystemParametersInfoW(SPI_GETWORKAREA, 0, &workArea) && workArea.Height() < screen.Height())
        screen.bottom = workArea.bottom;
    return screen;
}

// Empty for a window of another program: its place is not known here.
CRect PlaceOf(HWND window)
{
    const CWnd* own = CWnd::FromHandle(window);
    return own ? own->GetWindowRect() : CRect();
}

} // namespace

CRect GetVirtualScreen()
{
    const CPoint corner(GetSystemMetrics(SM_XVIRTUALSCREEN), GetSystemMetrics(SM_YVIRTUALSCREEN));
    return {corner,
            CSize(GetSystemMetrics(SM_CXVIRTUALSCREEN), GetSystemMetrics(SM_CYVIRTUALSCREEN))};
}

bool IsWindowMaximised(const CWnd& window)
{
    WINDOWPLACEMENT placement;
    window.GetWindowPlacement(placement);
    return placement.showCmd == SW_SHOWMAXIMIZED;
}

bool MoveWindowOnScreen(CWnd& window)
{
    const CRect place = window.GetWindowRect();
    const CRect kept = KeepOnScreen(place);
    if (kept == place)
        return false;
    window.SetWindowPos(nullptr, kept.left, kept.top, 0, 0,
                        SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    return true;
}

void CentreWindow(const CRect& place, const CWnd* parent, CRect& centred)
{
    CRect area = GetMonitors().front().m_Area;
    if (parent)
    {
        area = parent->GetClientRect();
        parent->ClientToScreen(area);
    }
    centred = CentreInside(area, place.Size());
}

void ArrangeSideBySide(HWND first, HWND second)
{
    const CRect screen = GetUsableScreen();
    const bool hasSeveralMonitors = GetSystemMetrics(SM_CMONITORS) >= 2;
    CSideBySide places = SplitInHalves(screen);
    if (hasSeveralMonitors)
    {
        const LONG quarter = screen.Width() / 4;
        const LONG middle = screen.CenterPoint().y;
        places = ShareMonitors(MonitorFromPoint({screen.left + quarter, middle}),
                               MonitorFromPoint({screen.right - quarter, middle}), PlaceOf(first),
                               PlaceOf(second));
    }
    MoveWindow(first, places.m_First);
    MoveWindow(second, places.m_Second);
    if (!hasSeveralMonitors)
        return;
    ShowWindow(first, SW_MAXIMIZE);
    ShowWindow(second, SW_MAXIMIZE);
}

void BringWindowToTop(CWnd& window, bool force, bool moveCursor)
{
    if (force && CWnd::GetForegroundWindow() != &window)
        window.SetForegroundWindow();
    window.BringWindowToTop();

    const CRect place = window.GetWindowRect();
    if (moveCursor && !place.PtInRect(GetCursorPos()))
        SetCursorPos(place.CenterPoint().x, place.CenterPoint().y);
}

} // namespace utility
