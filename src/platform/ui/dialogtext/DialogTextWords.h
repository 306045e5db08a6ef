#pragma once

#include "platform/base/Types.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/ControlStyles.h"

#include <string_view>

namespace utility
{

/// A kind of control in a text of dialog templates: what its first word stands for.
struct CControlWord
{
    std::u16string_view m_Word;
    std::u16string_view m_ClassName; // empty: the text names it
    DWORD m_Style = 0;
    bool m_HasText = false;
    bool m_TakesKeys = false; // a tab stop, and in need of an accessible name
};

constexpr CControlWord CONTROL_WORDS[] = {
    {u"text", u"Static", SS_LEFT, true, false},
    {u"line", u"Static", SS_ETCHEDHORZ, false, false},
    {u"picture", u"Static", SS_BITMAP, false, false},
    {u"frame", u"Button", BS_GROUPBOX, true, false},
    {u"push", u"Button", BS_PUSHBUTTON, true, true},
    {u"default", u"Button", BS_DEFPUSHBUTTON, true, true},
    {u"check", u"Button", BS_AUTOCHECKBOX, true, true},
    {u"check3", u"Button", BS_AUTO3STATE, true, true},
    {u"radio", u"Button", BS_AUTORADIOBUTTON, true, true},
    {u"edit", u"EDIT", WS_BORDER | ES_AUTOHSCROLL, false, true},
    {u"list", u"ListBox", WS_BORDER | WS_VSCROLL | LBS_NOTIFY, false, true},
    {u"combo", u"COMBOBOX", CBS_DROPDOWN | CBS_AUTOHSCROLL, false, true},
    {u"droplist", u"COMBOBOX", CBS_DROPDOWNLIST, false, true},
    {u"tree", u"SysTreeView32", WS_BORDER | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT, false,
     true},
    {u"tabs", u"SysTabControl32", 0, false, true},
    {u"spin", u"msctls_updown32", UDS_SETBUDDYINT | UDS_AUTOBUDDY | UDS_ALIGNRIGHT | UDS_ARROWKEYS,
     false, false},
    {u"window", u"", 0, true, false},
};

/// A word behind a control's size that changes its style.
struct CControlOption
{
    std::u16string_view m_Word;
    std::u16string_view m_ClassName; // empty: for every control
    DWORD m_Set = 0;
    DWORD m_Clear = 0;
};

constexpr CControlOption CONTROL_OPTIONS[] = {
    {u"tabstop", u"", WS_TABSTOP, 0},
    {u"notabstop", u"", 0, WS_TABSTOP},
    {u"group", u"", WS_GROUP, 0},
    {u"disabled", u"", WS_DISABLED, 0},
    {u"hidden", u"", 0, WS_VISIBLE},
    {u"border", u"", WS_BORDER, 0},
    {u"noborder", u"", 0, WS_BORDER},
    {u"hscroll", u"", WS_HSCROLL, 0},
    {u"vscroll", u"", WS_VSCROLL, 0},
    {u"centre", u"Static", SS_CENTER, SS_TYPEMASK},
    {u"right", u"Static", SS_RIGHT, SS_TYPEMASK},
    {u"plain", u"Static", SS_NOPREFIX, 0},
    {u"clicks", u"Static", SS_NOTIFY, 0},
    {u"sunken", u"Static", SS_SUNKEN, 0},
    {u"shorten", u"Static", SS_ENDELLIPSIS, 0},
    {u"multiline", u"Button", BS_MULTILINE, 0},
    {u"pushlike", u"Button", BS_PUSHLIKE, 0},
    {u"ownerdraw", u"Button", BS_OWNERDRAW, BS_TYPEMASK},
    {u"centre", u"EDIT", ES_CENTER, 0},
    {u"right", u"EDIT", ES_RIGHT, 0},
    {u"multiline", u"EDIT", ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN, ES_AUTOHSCROLL},
    {u"password", u"EDIT", ES_PASSWORD, 0},
    {u"readonly", u"EDIT", ES_READONLY, 0},
    {u"digits", u"EDIT", ES_NUMBER, 0},
    {u"sort", u"ListBox", LBS_SORT, 0},
    {u"multiple", u"ListBox", LBS_MULTIPLESEL, 0},
    {u"extended", u"ListBox", LBS_EXTENDEDSEL, 0},
    {u"columns", u"ListBox", LBS_USETABSTOPS, 0},
    {u"keys", u"ListBox", LBS_WANTKEYBOARDINPUT, 0},
    {u"ownerdraw", u"ListBox", LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, 0},
    {u"sort", u"COMBOBOX", CBS_SORT, 0},
    {u"ownerdraw", u"COMBOBOX", CBS_OWNERDRAWFIXED | CBS_HASSTRINGS, 0},
    {u"checks", u"SysTreeView32", TVS_CHECKBOXES, 0},
    {u"wrap", u"msctls_updown32", UDS_WRAP, 0},
};

/// A word behind a dialog's size.
struct CDialogOption
{
    std::u16string_view m_Word;
    DWORD m_Set = 0;
    DWORD m_Clear = 0;
    DWORD m_SetEx = 0;
};

constexpr CDialogOption DIALOG_OPTIONS[] = {
    {u"resizable", WS_THICKFRAME, DS_MODALFRAME, 0},
    {u"minimisable", WS_MINIMIZEBOX, 0, 0},
    {u"maximisable", WS_MAXIMIZEBOX, 0, 0},
    {u"noclose", 0, WS_SYSMENU, 0},
    {u"tool", 0, 0, WS_EX_TOOLWINDOW},
    // A page has no frame of its own; its controls join the tab order around it.
    {u"page", WS_CHILD | DS_CONTROL, WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_CENTER,
     WS_EX_CONTROLPARENT},
};

/// A dialog as it is without options: a frame with a title, centred over its owner.
constexpr DWORD PLAIN_DIALOG_STYLE = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_CENTER;

} // namespace utility
