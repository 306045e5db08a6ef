#pragma once

#include "platform/base/Rect.h"
#include "platform/base/Types.h"
#include "platform/system/window/WindowRecords.h"

/// Messages, records and notes of trees (class "SysTreeView32").
namespace utility
{

constexpr UINT TVM_DELETEITEM = 0x1101;
constexpr UINT TVM_EXPAND = 0x1102;      // wParam: TVE_..., lParam: item
constexpr UINT TVM_GETITEMRECT = 0x1104; // wParam: text alone, lParam: TVITEMRECT
constexpr UINT TVM_GETCOUNT = 0x1105;
constexpr UINT TVM_SETIMAGELIST = 0x1109; // lParam: a CImageList
constexpr UINT TVM_GETNEXTITEM = 0x110A;  // wParam: TVGN_..., lParam: item
constexpr UINT TVM_SELECTITEM = 0x110B;   // wParam: TVGN_CARET, lParam: item
constexpr UINT TVM_HITTEST = 0x1111;      // lParam: TVHITTESTINFO
constexpr UINT TVM_ENSUREVISIBLE = 0x1114;
constexpr UINT TVM_INSERTITEM = 0x1132; // lParam: TVINSERTSTRUCT
constexpr UINT TVM_GETITEM = 0x113E;    // lParam: TVITEM
constexpr UINT TVM_SETITEM = 0x113F;    // lParam: TVITEM
constexpr UINT TVM_EDITLABEL = 0x1141;

// What TVM_EXPAND does
constexpr UINT TVE_COLLAPSE = 1;
constexpr UINT TVE_EXPAND = 2;
constexpr UINT TVE_TOGGLE = 3;

// Relations of an item
constexpr UINT TVGN_ROOT = 0;
constexpr UINT TVGN_NEXT = 1;
constexpr UINT TVGN_PREVIOUS = 2;
constexpr UINT TVGN_PARENT = 3;
constexpr UINT TVGN_CHILD = 4;
constexpr UINT TVGN_CARET = 9; // the selected one

// Members of a TVITEM that count
constexpr UINT TVIF_TEXT = 0x01;
constexpr UINT TVIF_IMAGE = 0x02;
constexpr UINT TVIF_PARAM = 0x04;
constexpr UINT TVIF_STATE = 0x08;
constexpr UINT TVIF_SELECTEDIMAGE = 0x20;
constexpr UINT TVIF_CHILDREN = 0x40;

// States of an item; the mark's picture, from 1 up, stands in four bits of its own
constexpr UINT TVIS_SELECTED = 0x0002;
constexpr UINT TVIS_BOLD = 0x0010;
constexpr UINT TVIS_EXPANDED = 0x0020;
constexpr UINT TVIS_STATEIMAGEMASK = 0xF000;
constexpr int TVIS_STATEIMAGESHIFT = 12;

/// Places for a new item instead of a parent or of the item before it.
inline const HTREEITEM TVI_ROOT = reinterpret_cast<HTREEITEM>(static_cast<std::intptr_t>(-0x10000));
inline const HTREEITEM TVI_FIRST = reinterpret_cast<HTREEITEM>(static_cast<std::intptr_t>(-0xFFFF));
inline const HTREEITEM TVI_LAST = reinterpret_cast<HTREEITEM>(static_cast<std::intptr_t>(-0xFFFE));
inline const HTREEITEM TVI_SORT = reinterpret_cast<HTREEITEM>(static_cast<std::intptr_t>(-0xFFFD));

/// An item's members; those that `mask` names are read or written.
struct TVITEM
{
    UINT mask = 0;
    HTREEITEM hItem = nullptr;
    UINT state = 0;
    UINT stateMask = 0;                // the states that count
    const char16_t* pszText = nullptr; // what is read holds until the item's text changes
    int iImage = -1;                   // -1: none
    int iSelectedImage = -1;
    int cChildren = 0; // 1: can be opened although there is no child yet
    LPARAM lParam = 0;
};

struct TVINSERTSTRUCT
{
    HTREEITEM hParent = nullptr; // null as TVI_ROOT
    HTREEITEM hInsertAfter = nullptr;
    TVITEM item;
};

struct TVITEMRECT
{
    HTREEITEM hItem = nullptr;
    CRect rect; // in pixels of the tree
};

// Where on an item a place lies
constexpr UINT TVHT_NOWHERE = 0x01;
constexpr UINT TVHT_ONITEMLABEL = 0x04; // its picture or text
constexpr UINT TVHT_ONITEMRIGHT = 0x20; // beside its text
constexpr UINT TVHT_ONITEMSTATEICON = 0x40;
constexpr UINT TVHT_ONITEM = 0x46; // any of these but beside

struct TVHITTESTINFO
{
    CPoint pt; // in pixels of the tree
    UINT flags = 0;
    HTREEITEM hItem = nullptr;
};

// Codes of WM_NOTIFY to the parent; all come with a NMTREEVIEW but for those of labels
constexpr int TVN_ITEMCHANGED = -419; // a mark, with TVS_CHECKBOXES
constexpr int TVN_SELCHANGING = -450; // an answer other than 0 keeps the selection
constexpr int TVN_SELCHANGED = -451;
constexpr int TVN_ITEMEXPANDING = -454; // an answer other than 0 keeps it
constexpr int TVN_ITEMEXPANDED = -455;
constexpr int TVN_DELETEITEM = -458;     // its data is in itemOld
constexpr int TVN_BEGINLABELEDIT = -459; // an answer other than 0 keeps the label
constexpr int TVN_ENDLABELEDIT = -460;   // an answer other than 0 takes the text
constexpr int NM_CLICK = -2;             // these four with a NMHDR alone
constexpr int NM_DBLCLK = -3;
constexpr int NM_RETURN = -4;
constexpr int NM_RCLICK = -5;

struct NMTREEVIEW
{
    NMHDR hdr;
    UINT action = 0; // of expanding: TVE_...; of selecting: TVC_...
    TVITEM itemOld;  // handle, states and data
    TVITEM itemNew;
    CPoint ptDrag;
};

struct NMTVDISPINFO
{
    NMHDR hdr;
    TVITEM item; // a null text: the user gave the new label up
};

// Who selects
constexpr UINT TVC_UNKNOWN = 0; // the program
constexpr UINT TVC_BYMOUSE = 1;
constexpr UINT TVC_BYKEYBOARD = 2;

} // namespace utility
