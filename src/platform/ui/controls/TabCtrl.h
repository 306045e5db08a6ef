#pragma once

#include "platform/base/Export.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

class CString;

constexpr UINT TCM_GETITEMCOUNT = 0x1304;
constexpr UINT TCM_DELETEITEM = 0x1308;
constexpr UINT TCM_DELETEALLITEMS = 0x1309;
constexpr UINT TCM_GETCURSEL = 0x130B;
constexpr UINT TCM_SETCURSEL = 0x130C;
constexpr UINT TCM_ADJUSTRECT = 0x1328; // wParam: from the page to the window, lParam: a CRect
constexpr UINT TCM_GETITEM = 0x133C;    // wParam: tab, lParam: TCITEM
constexpr UINT TCM_SETITEM = 0x133D;    // wParam: tab, lParam: TCITEM
constexpr UINT TCM_INSERTITEM = 0x133E; // wParam: tab, lParam: TCITEM

// Members of a TCITEM that count
constexpr UINT TCIF_TEXT = 0x01;
constexpr UINT TCIF_PARAM = 0x08;

// Codes of WM_NOTIFY to the parent, with a NMHDR: the user goes to another tab
constexpr int TCN_SELCHANGE = -551;
constexpr int TCN_SELCHANGING = -552; // before; an answer other than 0 keeps the tab

struct TCITEM
{
    UINT mask = 0;
    const char16_t* pszText = nullptr; // what is read holds until the tab's text changes
    LPARAM lParam = 0;
};

/// A row of tabs over a page; what the page shows is the owner's affair.
///
/// Tabs are numbered from 0. The program's own changes send no note.
class UTILITY_UI_API CTabCtrl : public CWnd
{
    DECLARE_DYNAMIC(CTabCtrl)

public:
    bool Create(DWORD style, const CRect& place, CWnd* parent, UINT id);

    /// The tab's number, or -1. The first tab becomes the current one.
    int InsertItem(int tab, const TCITEM* item);
    int InsertItem(int tab, const CString& text);
    bool DeleteItem(int tab);
    bool DeleteAllItems();
    int GetItemCount() const;
    bool GetItem(int tab, TCITEM* item) const;
    bool SetItem(int tab, const TCITEM* item);
    int GetCurSel() const;
    /// The tab before, or -1.
    int SetCurSel(int tab);
    /// From the window's place to the page's within it, or back (`larger`).
    void AdjustRect(bool larger, CRect& place) const;
};

} // namespace utility
