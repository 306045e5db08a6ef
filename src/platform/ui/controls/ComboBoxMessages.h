#pragma once

#include "platform/base/Types.h"

/// Messages and notes of fields with a list (class "COMBOBOX").
namespace utility
{

constexpr LRESULT CB_ERR = -1;

constexpr UINT CB_GETEDITSEL = 0x0140; // two DWORD pointers, each may be null
constexpr UINT CB_LIMITTEXT = 0x0141;
constexpr UINT CB_SETEDITSEL = 0x0142; // lParam: first and last in two words
constexpr UINT CB_ADDSTRING = 0x0143;
constexpr UINT CB_DELETESTRING = 0x0144;
constexpr UINT CB_GETCOUNT = 0x0146;
constexpr UINT CB_GETCURSEL = 0x0147;
constexpr UINT CB_GETLBTEXT = 0x0148; // into a buffer of the length and one more
constexpr UINT CB_GETLBTEXTLEN = 0x0149;
constexpr UINT CB_INSERTSTRING = 0x014A;
constexpr UINT CB_RESETCONTENT = 0x014B;
constexpr UINT CB_FINDSTRING = 0x014C;
constexpr UINT CB_SELECTSTRING = 0x014D;
constexpr UINT CB_SETCURSEL = 0x014E;
constexpr UINT CB_SHOWDROPDOWN = 0x014F;
constexpr UINT CB_GETITEMDATA = 0x0150;
constexpr UINT CB_SETITEMDATA = 0x0151;
constexpr UINT CB_SETITEMHEIGHT = 0x0153; // wParam: -1 the field, else the rows
constexpr UINT CB_GETITEMHEIGHT = 0x0154;
constexpr UINT CB_GETDROPPEDSTATE = 0x0157;
constexpr UINT CB_FINDSTRINGEXACT = 0x0158;
constexpr UINT CB_GETDROPPEDWIDTH = 0x015F;
constexpr UINT CB_SETDROPPEDWIDTH = 0x0160;

// Codes of WM_COMMAND to the parent
constexpr UINT CBN_SELCHANGE = 1;
constexpr UINT CBN_SETFOCUS = 3;
constexpr UINT CBN_KILLFOCUS = 4;
constexpr UINT CBN_EDITCHANGE = 5; // the user changed the field
constexpr UINT CBN_DROPDOWN = 7;
constexpr UINT CBN_CLOSEUP = 8;
constexpr UINT CBN_SELENDOK = 9;      // a row was taken
constexpr UINT CBN_SELENDCANCEL = 10; // the list was left without taking one

} // namespace utility
