#pragma once

#include "platform/base/Rect.h"
#include "platform/base/Types.h"

/// What is told to the owner of a control that draws its rows itself.
namespace utility
{

// Kinds of controls
constexpr UINT ODT_MENU = 1;
constexpr UINT ODT_LISTBOX = 2;
constexpr UINT ODT_COMBOBOX = 3;
constexpr UINT ODT_BUTTON = 4;

// Why a row is drawn
constexpr UINT ODA_DRAWENTIRE = 0x0001;

// The state of a row: a sum
constexpr UINT ODS_SELECTED = 0x0001;
constexpr UINT ODS_DISABLED = 0x0004;
constexpr UINT ODS_FOCUS = 0x0010;
constexpr UINT ODS_COMBOBOXEDIT = 0x1000; // the field of a combo, not its list

/// A row to be drawn; the context belongs to the control and is there for this message alone.
struct DRAWITEMSTRUCT
{
    UINT CtlType = 0;
    UINT CtlID = 0;
    UINT itemID = 0; // the row; all ones for an empty control
    UINT itemAction = 0;
    UINT itemState = 0;
    HWND hwndItem = nullptr;
    HDC hDC = nullptr;
    CRect rcItem;
    LPARAM itemData = 0;
};

/// A row whose size is asked; the height is preset with that of a line of text.
struct MEASUREITEMSTRUCT
{
    UINT CtlType = 0;
    UINT CtlID = 0;
    UINT itemID = 0;
    UINT itemWidth = 0;
    UINT itemHeight = 0;
    LPARAM itemData = 0;
};

} // namespace utility
