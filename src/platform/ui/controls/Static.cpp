#include "platform/ui/controls/Static.h"

#include "platform/base/Rect.h"
#include "platform/ui/drawing/ImageTypes.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CStatic, CWnd)

bool CStatic::Create(const char16_t* text, DWORD style, const CRect& place, CWnd* parent, UINT id)
{
    if (!CWnd::Create(u"Static", text, style, parent, id))
        return false;
    MoveWindow(place);
    return true;
}

HBITMAP CStatic::SetBitmap(HBITMAP bitmap)
{
    return reinterpret_cast<HBITMAP>(
        SendMessage(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap)));
}

HBITMAP CStatic::GetBitmap() const
{
    return reinterpret_cast<HBITMAP>(SendMessage(STM_GETIMAGE, IMAGE_BITMAP));
}

HICON CStatic::SetIcon(HICON icon)
{
    return reinterpret_cast<HICON>(
        SendMessage(STM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon)));
}

HICON CStatic::GetIcon() const
{
    return reinterpret_cast<HICON>(SendMessage(STM_GETIMAGE, IMAGE_ICON));
}

} // namespace utility
