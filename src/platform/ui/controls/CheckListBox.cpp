#include "platform/ui/controls/CheckListBox.h"

#include "platform/base/Rect.h"
#include "platform/ui/ControlStyles.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CCheckListBox, CListBox)

bool CCheckListBox::Create(DWORD style, const CRect& place, CWnd* parent, UINT id)
{
    if (!CListBox::Create(style, place, parent, id))
        return false;
    SetCheckStyle(BS_AUTOCHECKBOX);
    return true;
}

void CCheckListBox::PreSubclassWindow()
{
    if (GetCheckStyle() == 0)
        SetCheckStyle(BS_AUTOCHECKBOX);
}

void CCheckListBox::SetCheckStyle(UINT style)
{
    SendMessage(CLB_SETCHECKSTYLE, style);
}

UINT CCheckListBox::GetCheckStyle() const
{
    return static_cast<UINT>(SendMessage(CLB_GETCHECKSTYLE));
}

void CCheckListBox::SetCheck(int row, int check)
{
    SendMessage(CLB_SETCHECK, static_cast<WPARAM>(row), check);
}

int CCheckListBox::GetCheck(int row) const
{
    return static_cast<int>(SendMessage(CLB_GETCHECK, static_cast<WPARAM>(row)));
}

void CCheckListBox::Enable(int row, bool enabled)
{
    SendMessage(CLB_ENABLE, static_cast<WPARAM>(row), enabled);
}

bool CCheckListBox::IsEnabled(int row) const
{
    return SendMessage(CLB_ISENABLED, static_cast<WPARAM>(row)) != 0;
}

void CCheckListBox::SetSelectionCheck(int check)
{
    SendMessage(CLB_SETSELECTIONCHECK, static_cast<WPARAM>(check));
}

void CCheckListBox::InvalidateCheck(int row)
{
    SetCheck(row, GetCheck(row));
}

} // namespace utility
