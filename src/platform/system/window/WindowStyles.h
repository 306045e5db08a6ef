#pragma once

#include "platform/base/Types.h"

/// Numbers of the window vocabulary: showing, placing, order, styles.
namespace utility
{

constexpr int SW_HIDE = 0;
constexpr int SW_SHOWNORMAL = 1;
constexpr int SW_SHOWMINIMIZED = 2;
constexpr int SW_SHOWMAXIMIZED = 3;
constexpr int SW_MAXIMIZE = 3;
constexpr int SW_SHOWNOACTIVATE = 4;
constexpr int SW_SHOW = 5;
constexpr int SW_MINIMIZE = 6;
constexpr int SW_SHOWNA = 8;
constexpr int SW_RESTORE = 9;

constexpr UINT SWP_NOSIZE = 1;
constexpr UINT SWP_NOMOVE = 2;
constexpr UINT SWP_NOZORDER = 4;
constexpr UINT SWP_NOREDRAW = 8;
constexpr UINT SWP_NOACTIVATE = 0x10;
constexpr UINT SWP_FRAMECHANGED = 0x20;
constexpr UINT SWP_SHOWWINDOW = 0x40;
constexpr UINT SWP_HIDEWINDOW = 0x80;

constexpr UINT GW_HWNDFIRST = 0; // with GetWindow: among the window's siblings
constexpr UINT GW_HWNDLAST = 1;
constexpr UINT GW_HWNDNEXT = 2;
constexpr UINT GW_HWNDPREV = 3;
constexpr UINT GW_OWNER = 4;
constexpr UINT GW_CHILD = 5; // the first child

constexpr UINT RDW_INVALIDATE = 0x0001; // with RedrawWindow
constexpr UINT RDW_ERASE = 0x0004;
constexpr UINT RDW_ALLCHILDREN = 0x0080;
constexpr UINT RDW_UPDATENOW = 0x0100;

constexpr DWORD WS_MAXIMIZEBOX = 0x00010000; // of a top-level window
constexpr DWORD WS_TABSTOP = 0x00010000;     // of a control
constexpr DWORD WS_MINIMIZEBOX = 0x00020000;
constexpr DWORD WS_GROUP = 0x00020000; // of a control
constexpr DWORD WS_THICKFRAME = 0x00040000;
constexpr DWORD WS_SYSMENU = 0x00080000;
constexpr DWORD WS_HSCROLL = 0x00100000;
constexpr DWORD WS_VSCROLL = 0x00200000;
constexpr DWORD WS_DLGFRAME = 0x00400000;
constexpr DWORD WS_BORDER = 0x00800000;
constexpr DWORD WS_CAPTION = WS_BORDER | WS_DLGFRAME;
constexpr DWORD WS_CLIPCHILDREN = 0x02000000;
constexpr DWORD WS_CLIPSIBLINGS = 0x04000000;
constexpr DWORD WS_DISABLED = 0x08000000;
constexpr DWORD WS_VISIBLE = 0x10000000;
constexpr DWORD WS_CHILD = 0x40000000;
constexpr DWORD WS_POPUP = 0x80000000;

constexpr DWORD WS_EX_TOPMOST = 0x00000008;
constexpr DWORD WS_EX_TRANSPARENT = 0x00000020;
constexpr DWORD WS_EX_TOOLWINDOW = 0x00000080;
constexpr DWORD WS_EX_CLIENTEDGE = 0x00000200;
constexpr DWORD WS_EX_CONTROLPARENT = 0x00010000;

} // namespace utility
