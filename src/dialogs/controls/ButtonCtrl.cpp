#include "dialogs/controls/ButtonCtrl.h"

#include "platform/base/String.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CButtonCtrl, CButton)

bool CButtonCtrl::IsChecked() const
{
    return GetCheck() == BST_CHECKED;
}

void CButtonCtrl::SetChecked(bool checked)
{
    SetCheck(checked ? BST_CHECKED : BST_UNCHECKED);
}

void CButtonCtrl::SetCheckedCount(int checked, int count)
{
    if (checked <= 0)
        SetCheck(BST_UNCHECKED);
    else
        SetCheck(checked < count ? BST_INDETERMINATE : BST_CHECKED);
}

void CButtonCtrl::SetText(const CString& text)
{
    if (GetWindowText() != text)
        SetWindowText(text);
}

void CButtonCtrl::Click()
{
    SendMessage(BM_CLICK);
}

} // namespace utility
