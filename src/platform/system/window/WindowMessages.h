#pragma once

#include "platform/base/Types.h"
#include "platform/system/window/WindowStyles.h"

/// Numbers of the window vocabulary: messages and what comes with them.
namespace utility
{

// Life and state of a window
constexpr UINT WM_NULL = 0x0000;
constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_MOVE = 0x0003;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_ACTIVATE = 0x0006;
constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_ENABLE = 0x000A;
constexpr UINT WM_SETREDRAW = 0x000B;
constexpr UINT WM_SETTEXT = 0x000C;
constexpr UINT WM_GETTEXT = 0x000D;
constexpr UINT WM_GETTEXTLENGTH = 0x000E;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_ERASEBKGND = 0x0014;
constexpr UINT WM_SYSCOLORCHANGE = 0x0015;
constexpr UINT WM_SHOWWINDOW = 0x0018;
constexpr UINT WM_SETCURSOR = 0x0020;
constexpr UINT WM_GETMINMAXINFO = 0x0024;
constexpr UINT WM_NEXTDLGCTL = 0x0028;
constexpr UINT WM_DRAWITEM = 0x002B;
constexpr UINT WM_MEASUREITEM = 0x002C;
constexpr UINT WM_DELETEITEM = 0x002D;
constexpr UINT WM_VKEYTOITEM = 0x002E;
constexpr UINT WM_SETFONT = 0x0030;
constexpr UINT WM_GETFONT = 0x0031;
constexpr UINT WM_COMPAREITEM = 0x0039;
constexpr UINT WM_WINDOWPOSCHANGING = 0x0046;
constexpr UINT WM_WINDOWPOSCHANGED = 0x0047;
constexpr UINT WM_NOTIFY = 0x004E;
constexpr UINT WM_HELP = 0x0053;
constexpr UINT WM_CONTEXTMENU = 0x007B;
constexpr UINT WM_GETDLGCODE = 0x0087;

// Keys
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_KEYUP = 0x0101;
constexpr UINT WM_CHAR = 0x0102;
constexpr UINT WM_SYSKEYDOWN = 0x0104;
constexpr UINT WM_SYSKEYUP = 0x0105;
constexpr UINT WM_SYSCHAR = 0x0106;

// Commands
constexpr UINT WM_INITDIALOG = 0x0110;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_SYSCOMMAND = 0x0112;
constexpr UINT WM_TIMER = 0x0113;
constexpr UINT WM_HSCROLL = 0x0114;
constexpr UINT WM_VSCROLL = 0x0115;
constexpr UINT WM_INITMENUPOPUP = 0x0117;

// Colours that a parent gives its controls; wParam is the drawing context, lParam the control.
constexpr UINT WM_CTLCOLOREDIT = 0x0133;
constexpr UINT WM_CTLCOLORLISTBOX = 0x0134;
constexpr UINT WM_CTLCOLORBTN = 0x0135;
constexpr UINT WM_CTLCOLORDLG = 0x0136;
constexpr UINT WM_CTLCOLORSTATIC = 0x0138;

// The pointer; lParam is the place in the client area, x in the low word
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
constexpr UINT WM_RBUTTONDOWN = 0x0204;
constexpr UINT WM_RBUTTONUP = 0x0205;
constexpr UINT WM_RBUTTONDBLCLK = 0x0206;
constexpr UINT WM_MBUTTONDOWN = 0x0207;
constexpr UINT WM_MBUTTONUP = 0x0208;
constexpr UINT WM_MOUSEWHEEL = 0x020A;
constexpr UINT WM_CAPTURECHANGED = 0x0215;
constexpr UINT WM_MOUSELEAVE = 0x02A3;
constexpr UINT WM_CUT = 0x0300;
constexpr UINT WM_COPY = 0x0301;
constexpr UINT WM_PASTE = 0x0302;
constexpr UINT WM_CLEAR = 0x0303;
constexpr UINT WM_USER = 0x0400;
constexpr UINT DM_GETDEFID = WM_USER; // of dialogs
constexpr UINT DM_SETDEFID = WM_USER + 1;

constexpr WPARAM SC_SIZE = 61440; // with WM_SYSCOMMAND
constexpr WPARAM SC_MINIMIZE = 61472;
constexpr WPARAM SC_MAXIMIZE = 61488;
constexpr WPARAM SC_CLOSE = 61536;
constexpr WPARAM SC_RESTORE = 61728;
constexpr WPARAM SIZE_RESTORED = 0; // with WM_SIZE
constexpr WPARAM SIZE_MINIMIZED = 1;
constexpr WPARAM SIZE_MAXIMIZED = 2;
constexpr WPARAM WA_INACTIVE = 0; // with WM_ACTIVATE
constexpr WPARAM WA_ACTIVE = 1;
constexpr WPARAM MK_LBUTTON = 1; // with the pointer's messages
constexpr WPARAM MK_RBUTTON = 2;
constexpr WPARAM MK_SHIFT = 4;
constexpr WPARAM MK_CONTROL = 8;
constexpr WPARAM MK_MBUTTON = 16;
constexpr LRESULT DLGC_WANTARROWS = 0x0001; // answers to WM_GETDLGCODE
constexpr LRESULT DLGC_WANTTAB = 0x0002;
constexpr LRESULT DLGC_WANTALLKEYS = 0x0004;
constexpr LRESULT DLGC_HASSETSEL = 0x0008;
constexpr LRESULT DLGC_DEFPUSHBUTTON = 0x0010;
constexpr LRESULT DLGC_UNDEFPUSHBUTTON = 0x0020;
constexpr LRESULT DLGC_RADIOBUTTON = 0x0040;
constexpr LRESULT DLGC_WANTCHARS = 0x0080;
constexpr LRESULT DLGC_STATIC = 0x0100;
constexpr LRESULT DLGC_BUTTON = 0x2000;

/// Two 16-bit values in one message value, as in WM_COMMAND (id and code) and WM_SIZE (width and
/// height).
constexpr LPARAM MAKELPARAM(int low, int high)
{
    return static_cast<LPARAM>(static_cast<DWORD>(static_cast<WORD>(low)) |
                               static_cast<DWORD>(static_cast<WORD>(high)) << 16);
}
constexpr WPARAM MAKEWPARAM(int low, int high)
{
    return static_cast<WPARAM>(MAKELPARAM(low, high));
}
constexpr WORD LOWORD(WPARAM value)
{
    return static_cast<WORD>(value);
}
constexpr WORD HIWORD(WPARAM value)
{
    return static_cast<WORD>(value >> 16);
}
/// The signed halves of a place.
constexpr int GET_X_LPARAM(LPARAM value)
{
    return static_cast<std::int16_t>(value);
}
constexpr int GET_Y_LPARAM(LPARAM value)
{
    return static_cast<std::int16_t>(value >> 16);
}

} // namespace utility
