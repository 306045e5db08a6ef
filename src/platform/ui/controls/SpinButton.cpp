#include "platform/ui/controls/SpinButton.h"

#include "platform/base/Rect.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CSpinButtonCtrl, CWnd)

bool CSpinButtonCtrl::Create(DWORD style, const CRect& place, CWnd* parent, UINT id)
{
    if (!CWnd::Create(u"msctls_updown32", u"", style, parent, id))
        return false;
    MoveWindow(place);
    return true;
}

CWnd* CSpinButtonCtrl::SetBuddy(CWnd* buddy)
{
    const HWND window = buddy ? buddy->GetSafeHwnd() : nullptr;
    return FromHandle(
        reinterpret_cast<HWND>(SendMessage(UDM_SETBUDDY, reinterpret_cast<WPARAM>(window))));
}

CWnd* CSpinButtonCtrl::GetBuddy() const
{
    return FromHandle(reinterpret_cast<HWND>(SendMessage(UDM_GETBUDDY)));
}

void CSpinButtonCtrl::SetRange32(int low, int high)
{
    SendMessage(UDM_SETRANGE32, static_cast<WPARAM>(low), high);
}

void CSpinButtonCtrl::GetRange32(int& low, int& high) const
{
    SendMessage(UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low), reinterpret_cast<LPARAM>(&high));
}

int CSpinButtonCtrl::SetPos32(int position)
{
    return static_cast<int>(SendMessage(UDM_SETPOS32, 0, position));
}

int CSpinButtonCtrl::GetPos32() const
{
    return static_cast<int>(SendMessage(UDM_GETPOS32));
}

} // namespace utility
