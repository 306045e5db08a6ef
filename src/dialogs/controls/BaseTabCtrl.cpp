#include "dialogs/controls/BaseTabCtrl.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CBaseTabCtrl, CTabCtrl)

int CBaseTabCtrl::AddTab(const CString& text, LPARAM data)
{
    const TCITEM item{TCIF_TEXT | TCIF_PARAM, text.GetString(), data};
    return InsertItem(GetItemCount(), &item);
}

CString CBaseTabCtrl::GetTabText(int tab) const
{
    TCITEM item{TCIF_TEXT, nullptr, 0};
    return GetItem(tab, &item) ? CString(item.pszText) : CString();
}

bool CBaseTabCtrl::SetTabText(int tab, const CString& text)
{
    const TCITEM item{TCIF_TEXT, text.GetString(), 0};
    return SetItem(tab, &item);
}

LPARAM CBaseTabCtrl::GetTabData(int tab) const
{
    TCITEM item{TCIF_PARAM, nullptr, 0};
    return GetItem(tab, &item) ? item.lParam : 0;
}

bool CBaseTabCtrl::SetTabData(int tab, LPARAM data)
{
    const TCITEM item{TCIF_PARAM, nullptr, data};
    return SetItem(tab, &item);
}

int CBaseTabCtrl::FindTab(LPARAM data) const
{
    const int count = GetItemCount();
    for (int tab = 0; tab < count; ++tab)
    {
        if (GetTabData(tab) == data)
            return tab;
    }
    return -1;
}

bool CBaseTabCtrl::SelectTab(LPARAM data)
{
    const int tab = FindTab(data);
    if (tab < 0)
        return false;
    SetCurSel(tab);
    return true;
}

int CBaseTabCtrl::GetNextTab(bool forward) const
{
    const int count = GetItemCount();
    if (count == 0)
        return -1;
    return (GetCurSel() + (forward ? 1 : count - 1)) % count;
}

} // namespace utility
