#pragma once

#include "platform/base/Types.h"

/// Numbers of the window vocabulary: messages, showing, placing, styles.
namespace utility
{

constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_GETTEXT = 0x000D;
constexpr UINT WM_GETTEXTLENGTH = 0x000E;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_SHOWWINDOW = 0x0018;
constexpr UINT WM_GETMINMAXINFO = 0x0024;
constexpr UINT WM_SETFONT = 0x0030;
constexpr UINT WM_WINDOWPOSCHANGING = 0x0046;
constexpr UINT WM_NOTIFY = 0x004E;
constexpr UINT WM_GETDLGCODE = 0x0087;
constexpr UINT WM_CHAR = 0x0102;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_SYSCOMMAND = 0x0112;
constexpr UINT WM_TIMER = 0x0113;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_RBUTTONDOWN = 0x0204;
constexpr UINT WM_RBUTTONUP = 0x0205;
constexpr UINT WM_USER = 0x0400;

constexpr WPARAM SC_MAXIMIZE = 61488; // with WM_SYSCOMMAND
constexpr WPARAM SIZE_MINIMIZED = 1;  // with WM_SIZE
constexpr WPARAM SIZE_MAXIMIZED = 2;
constexpr LRESULT DLGC_BUTTON = 0x2000; // answer to WM_GETDLGCODE

constexpr int SW_HIDE = 0;
constexpr int SW_SHOWNORMAL = 1;
constexpr int SW_SHOWMAXIMIZED = 3;
constexpr int SW_MAXIMIZE = 3;
constexpr int SW_SHOW = 5;
constexpr int SW_MINIMIZE = 6;
constexpr int SW_RESTORE = 9;

constexpr UINT SWP_NOSIZE = 1;
constexpr UINT SWP_NOMOVE = 2;
constexpr UINT SWP_NOZORDER = 4;
constexpr UINT SWP_NOACTIVATE = 0x10;

constexpr DWORD WS_TABSTOP = 0x00010000;
constexpr DWORD WS_MAXIMIZEBOX = 0x00010000; // of a top-level window
constexpr DWORD WS_GROUP = 0x00020000;
constexpr DWORD WS_MINIMIZEBOX = 0x00020000; // of a top-level window
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

constexpr DWORD WS_EX_CONTROLPARENT = 0x00010000;
constexpr DWORD WS_EX_TOOLWINDOW = 0x00000080;

} // namespace utility
