#include "platform/ui/controls/TabCtrl.h"

#include "platform/base/Rect.h"
#include "platform/base/String.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CTabCtrl, CWnd)

bool CTabCtrl::Create(DWORD style, const CRect& place, CWnd* parent, UINT id)
{
    if (!CWnd::Create(u"SysTabControl32", u"", style, parent, id))
        return false;
    MoveWindow(place);
    return true;
}

int CTabCtrl::InsertItem(int tab, const TCITEM* item)
{
    return static_cast<int>(
        SendMessage(TCM_INSERTITEM, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(item)));
}

int CTabCtrl::InsertItem(int tab, const CString& text)
{
    const TCITEM item{TCIF_TEXT, text, 0};
    return InsertItem(tab, &item);
}

bool CTabCtrl::DeleteItem(int tab)
{
    return SendMessage(TCM_DELETEITEM, static_cast<WPARAM>(tab)) != 0;
}

bool CTabCtrl::DeleteAllItems()
{
    return SendMessage(TCM_DELETEALLITEMS) != 0;
}

int CTabCtrl::GetItemCount() const
{
    return static_cast<int>(SendMessage(TCM_GETITEMCOUNT));
}

bool CTabCtrl::GetItem(int tab, TCITEM* item) const
{
    return SendMessage(TCM_GETITEM, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(item)) != 0;
}

bool CTabCtrl::SetItem(int tab, const TCITEM* item)
{
    return SendMessage(TCM_SETITEM, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(item)) != 0;
}

int CTabCtrl::GetCurSel() const
{
    return static_cast<int>(SendMessage(TCM_GETCURSEL));
}

int CTabCtrl::SetCurSel(int tab)
{
    return static_cast<int>(SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(tab)));
}

void CTabCtrl::AdjustRect(bool larger, CRect& place) const
{
    SendMessage(TCM_ADJUSTRECT, larger, reinterpret_cast<LPARAM>(&place));
}

} // namespace utility
