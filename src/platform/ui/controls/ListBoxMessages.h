#pragma once

#include "platform/base/Types.h"

/// Messages and notes of lists (class "ListBox").
namespace utility
{

constexpr LRESULT LB_ERR = -1;

constexpr UINT LB_ADDSTRING = 0x0180;
constexpr UINT LB_INSERTSTRING = 0x0181;
constexpr UINT LB_DELETESTRING = 0x0182;
constexpr UINT LB_RESETCONTENT = 0x0184;
constexpr UINT LB_SETSEL = 0x0185; // wParam: select, lParam: row
constexpr UINT LB_SETCURSEL = 0x0186;
constexpr UINT LB_GETSEL = 0x0187;
constexpr UINT LB_GETCURSEL = 0x0188;
constexpr UINT LB_GETTEXT = 0x0189; // into a buffer of the length and one more
constexpr UINT LB_GETTEXTLEN = 0x018A;
constexpr UINT LB_GETCOUNT = 0x018B;
constexpr UINT LB_SELECTSTRING = 0x018C;
constexpr UINT LB_GETTOPINDEX = 0x018E;
constexpr UINT LB_FINDSTRING = 0x018F;
constexpr UINT LB_GETSELCOUNT = 0x0190;
constexpr UINT LB_GETSELITEMS = 0x0191; // wParam: room, lParam: ints
constexpr UINT LB_SETTABSTOPS = 0x0192; // wParam: count, lParam: ints
constexpr UINT LB_GETHORIZONTALEXTENT = 0x0193;
constexpr UINT LB_SETHORIZONTALEXTENT = 0x0194;
constexpr UINT LB_SETTOPINDEX = 0x0197;
constexpr UINT LB_GETITEMRECT = 0x0198; // lParam: a CRect
constexpr UINT LB_GETITEMDATA = 0x0199;
constexpr UINT LB_SETITEMDATA = 0x019A;
constexpr UINT LB_SETCARETINDEX = 0x019E;
constexpr UINT LB_GETCARETINDEX = 0x019F;
constexpr UINT LB_SETITEMHEIGHT = 0x01A0;
constexpr UINT LB_GETITEMHEIGHT = 0x01A1;
constexpr UINT LB_FINDSTRINGEXACT = 0x01A2;

// Codes of WM_COMMAND to the parent, with LBS_NOTIFY
constexpr UINT LBN_SELCHANGE = 1;
constexpr UINT LBN_DBLCLK = 2;
constexpr UINT LBN_SETFOCUS = 4;
constexpr UINT LBN_KILLFOCUS = 5;

} // namespace utility
