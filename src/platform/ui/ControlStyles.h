#pragma once

#include "platform/base/Types.h"

/// Style bits of dialogs and of each kind of control, beside the `WS_...` of every window.
///
/// The bits of two kinds share their numbers; a control's class tells which are meant.
namespace utility
{

// Dialogs
constexpr DWORD DS_SETFONT = 0x40;
constexpr DWORD DS_MODALFRAME = 0x80;
constexpr DWORD DS_CONTROL = 0x400; // a page: its controls join the tab order of the dialog around
constexpr DWORD DS_CENTER = 0x800;

// Class "Static"; the low five bits are one number
constexpr DWORD SS_LEFT = 0;
constexpr DWORD SS_CENTER = 1;
constexpr DWORD SS_RIGHT = 2;
constexpr DWORD SS_ICON = 3;
constexpr DWORD SS_LEFTNOWORDWRAP = 0xC;
constexpr DWORD SS_OWNERDRAW = 0xD;
constexpr DWORD SS_BITMAP = 0xE;
constexpr DWORD SS_ETCHEDHORZ = 0x10;
constexpr DWORD SS_ETCHEDVERT = 0x11;
constexpr DWORD SS_ETCHEDFRAME = 0x12;
constexpr DWORD SS_TYPEMASK = 0x1F;
constexpr DWORD SS_NOPREFIX = 0x80; // & is a character like any other
constexpr DWORD SS_NOTIFY = 0x100;
constexpr DWORD SS_CENTERIMAGE = 0x200; // a picture, or one line of text, in the middle
constexpr DWORD SS_SUNKEN = 0x1000;
constexpr DWORD SS_ENDELLIPSIS = 0x4000;
constexpr DWORD SS_PATHELLIPSIS = 0x8000;

// Class "Button"; the low four bits are one number
constexpr DWORD BS_PUSHBUTTON = 0;
constexpr DWORD BS_DEFPUSHBUTTON = 1;
constexpr DWORD BS_CHECKBOX = 2;
constexpr DWORD BS_AUTOCHECKBOX = 3;
constexpr DWORD BS_RADIOBUTTON = 4;
constexpr DWORD BS_3STATE = 5;
constexpr DWORD BS_AUTO3STATE = 6;
constexpr DWORD BS_GROUPBOX = 7;
constexpr DWORD BS_AUTORADIOBUTTON = 9;
constexpr DWORD BS_OWNERDRAW = 0xB;
constexpr DWORD BS_TYPEMASK = 0xF;
constexpr DWORD BS_LEFTTEXT = 0x20; // the mark stands behind the text
constexpr DWORD BS_ICON = 0x40;
constexpr DWORD BS_BITMAP = 0x80;
constexpr DWORD BS_PUSHLIKE = 0x1000;
constexpr DWORD BS_MULTILINE = 0x2000;
constexpr DWORD BS_NOTIFY = 0x4000; // focus notes too

// Class "EDIT"
constexpr DWORD ES_LEFT = 0;
constexpr DWORD ES_CENTER = 1;
constexpr DWORD ES_RIGHT = 2;
constexpr DWORD ES_MULTILINE = 4;
constexpr DWORD ES_UPPERCASE = 8;
constexpr DWORD ES_LOWERCASE = 0x10;
constexpr DWORD ES_PASSWORD = 0x20;
constexpr DWORD ES_AUTOVSCROLL = 0x40;
constexpr DWORD ES_AUTOHSCROLL = 0x80;
constexpr DWORD ES_READONLY = 0x800;
constexpr DWORD ES_WANTRETURN = 0x1000;
constexpr DWORD ES_NUMBER = 0x2000;

// Class "ListBox"
constexpr DWORD LBS_NOTIFY = 1;
constexpr DWORD LBS_SORT = 2;
constexpr DWORD LBS_MULTIPLESEL = 8;
constexpr DWORD LBS_OWNERDRAWFIXED = 0x10;
constexpr DWORD LBS_OWNERDRAWVARIABLE = 0x20;
constexpr DWORD LBS_HASSTRINGS = 0x40;
constexpr DWORD LBS_USETABSTOPS = 0x80;
constexpr DWORD LBS_NOINTEGRALHEIGHT = 0x100;
constexpr DWORD LBS_WANTKEYBOARDINPUT = 0x400;
constexpr DWORD LBS_EXTENDEDSEL = 0x800;
constexpr DWORD LBS_NODATA = 0x2000;
constexpr DWORD LBS_NOSEL = 0x4000;

// Class "COMBOBOX"; the low two bits are one number
constexpr DWORD CBS_SIMPLE = 1;
constexpr DWORD CBS_DROPDOWN = 2;
constexpr DWORD CBS_DROPDOWNLIST = 3;
constexpr DWORD CBS_TYPEMASK = 3;
constexpr DWORD CBS_OWNERDRAWFIXED = 0x10;
constexpr DWORD CBS_OWNERDRAWVARIABLE = 0x20;
constexpr DWORD CBS_AUTOHSCROLL = 0x40;
constexpr DWORD CBS_SORT = 0x100;
constexpr DWORD CBS_HASSTRINGS = 0x200;

// Class "SysTreeView32"
constexpr DWORD TVS_HASBUTTONS = 1;
constexpr DWORD TVS_HASLINES = 2;
constexpr DWORD TVS_LINESATROOT = 4;
constexpr DWORD TVS_EDITLABELS = 8;
constexpr DWORD TVS_SHOWSELALWAYS = 0x20;
constexpr DWORD TVS_CHECKBOXES = 0x100;

// Class "SysTabControl32"
constexpr DWORD TCS_BOTTOM = 2;

// Class "msctls_updown32"
constexpr DWORD UDS_WRAP = 1;
constexpr DWORD UDS_SETBUDDYINT = 2;
constexpr DWORD UDS_ALIGNRIGHT = 4;
constexpr DWORD UDS_AUTOBUDDY = 0x10;
constexpr DWORD UDS_ARROWKEYS = 0x20;

} // namespace utility
