#include "dialogs/controls/PictureControl.h"

#include "platform/base/Rect.h"
#include "platform/system/window/WindowStyles.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/PixelPicture.h"
#include "platform/ui/ResourceTables.h"
#include "platform/ui/SystemMetrics.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CPictureControl, CStatic)

namespace
{

std::uint32_t ToDot(COLORREF pixel)
{
    constexpr std::uint32_t OPAQUE_DOT = 0xFF000000;
    if (pixel == CLEAR_PIXEL)
        return 0;
    const COLORREF colour =
        IsSystemColour(pixel) ? GetSysColor(GetSystemColourIndex(pixel)) : pixel;
    return OPAQUE_DOT | static_cast<std::uint32_t>(GetRValue(colour)) << 16 |
           static_cast<std::uint32_t>(GetGValue(colour)) << 8 | GetBValue(colour);
}

CPicture ToPicture(const CPixelPicture& pixels)
{
    CPicture picture{pixels.GetSize(), {}};
    for (int y = 0; y < picture.m_Size.cy; ++y)
    {
        for (int x = 0; x < picture.m_Size.cx; ++x)
            picture.m_Dots.push_back(ToDot(pixels.GetPixel(x, y)));
    }
    return picture;
}

} // namespace

bool CPictureControl::Create(UINT bitmapId, DWORD style, const CRect& place, CWnd* parent, UINT id)
{
    if (!CResourceTables::FindBitmap(bitmapId))
        return false;
    return CStatic::Create(u"", style | WS_CHILD | SS_BITMAP, place, parent, id) &&
           SetPicture(bitmapId);
}

bool CPictureControl::SetPicture(UINT bitmapId)
{
    const CPixelPicture* pixels = CResourceTables::FindBitmap(bitmapId);
    if (!pixels)
        return false;
    m_Picture.DeleteObject(); // what is shown is a copy
    m_Picture.CreateFromPicture(ToPicture(*pixels));
    SetBitmap(m_Picture);
    return true;
}

} // namespace utility
