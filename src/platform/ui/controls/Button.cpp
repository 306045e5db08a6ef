#include "platform/ui/controls/Button.h"

#include "platform/base/Rect.h"
#include "platform/ui/drawing/ImageTypes.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CButton, CWnd)

bool CButton::Create(const char16_t* title, DWORD style, const CRect& place, CWnd* parent, UINT id)
{
    if (!CWnd::Create(u"Button", title, style, parent, id))
        return false;
    MoveWindow(place);
    return true;
}

int CButton::GetCheck() const
{
    return static_cast<int>(SendMessage(BM_GETCHECK));
}

void CButton::SetCheck(int check)
{
    SendMessage(BM_SETCHECK, static_cast<WPARAM>(check));
}

HBITMAP CButton::SetBitmap(HBITMAP bitmap)
{
    return reinterpret_cast<HBITMAP>(
        SendMessage(BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap)));
}

HICON CButton::SetIcon(HICON icon)
{
    return reinterpret_cast<HICON>(
        SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon)));
}

void CButton::SetButtonStyle(DWORD style)
{
    SendMessage(BM_SETSTYLE, style, TRUE);
}

} // namespace utility
