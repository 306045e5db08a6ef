#pragma once

#include "platform/base/Point.h"
#include "platform/base/Rect.h"
#include "platform/base/Types.h"

/// Records that travel with messages and calls of windows.
namespace utility
{

/// With WM_NOTIFY: who tells what; the records of single controls begin with it.
struct NMHDR
{
    HWND hwndFrom = nullptr;
    WPARAM idFrom = 0;
    int code = 0;
};

/// With WM_GETMINMAXINFO: a window changes what limits it.
struct MINMAXINFO
{
    CPoint ptReserved;
    CPoint ptMaxSize;
    CPoint ptMaxPosition;
    CPoint ptMinTrackSize;
    CPoint ptMaxTrackSize;
};

/// How a window is shown, and the place that it takes when it is neither minimised nor maximised.
struct WINDOWPLACEMENT
{
    UINT length = 0;
    UINT flags = 0;
    UINT showCmd = 0; // SW_SHOWNORMAL, SW_SHOWMINIMIZED or SW_SHOWMAXIMIZED
    CRect rcNormalPosition;
};

} // namespace utility
