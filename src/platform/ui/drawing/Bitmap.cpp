#include "platform/ui/drawing/Bitmap.h"

#include "platform/base/Colour.h"
#include "platform/ui/HandleTable.h"
#include "platform/ui/ResourceTables.h"
#include "platform/ui/SystemMetrics.h"

#include <utility>

namespace utility
{

namespace
{

constexpr LONG SIDE_LIMIT = 32767;
constexpr std::size_t DOT_LIMIT = 100000000;
constexpr std::uint32_t OPAQUE_BLACK = 0xFF000000;

using CBitmapTable = THandleTable<HBITMAP, CPicture>;

// Never ended: pictures that live as long as the program come back to it at the very end.
CBitmapTable& GetBitmapTable()
{
    static CBitmapTable* const table = new CBitmapTable;
    return *table;
}

std::size_t CountDots(CSize size)
{
    return static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy);
}

bool IsAllowed(CSize size)
{
    return size.cx > 0 && size.cy > 0 && size.cx <= SIDE_LIMIT && size.cy <= SIDE_LIMIT &&
           CountDots(size) <= DOT_LIMIT;
}

std::uint32_t ToDot(COLORREF colour)
{
    if (colour == CLEAR_PIXEL)
        return 0;
    if (IsSystemColour(colour))
        colour = GetSysColor(GetSystemColourIndex(colour));
    return OPAQUE_BLACK | static_cast<std::uint32_t>(GetRValue(colour)) << 16 |
           static_cast<std::uint32_t>(GetGValue(colour)) << 8 | GetBValue(colour);
}

} // namespace

IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)

CBitmap::~CBitmap()
{
    CBitmap::DeleteObject();
}

bool CBitmap::CreateBitmap(int width, int height)
{
    const CSize size(width, height);
    if (m_Bitmap || !IsAllowed(size))
        return false;
    return CreateFromPicture({size, std::vector(CountDots(size), OPAQUE_BLACK)});
}

bool CBitmap::CreateFromPicture(CPicture picture)
{
    if (m_Bitmap || !IsAllowed(picture.m_Size) ||
        picture.m_Dots.size() != CountDots(picture.m_Size))
        return false;
    m_Bitmap = GetBitmapTable().Add(std::move(picture));
    return true;
}

bool CBitmap::LoadBitmap(UINT id)
{
    const CPixelPicture* pixels = CResourceTables::FindBitmap(id);
    if (!pixels)
        return false;
    CPicture picture{pixels->GetSize(), {}};
    picture.m_Dots.reserve(CountDots(picture.m_Size));
    for (int y = 0; y < picture.m_Size.cy; ++y)
    {
        for (int x = 0; x < picture.m_Size.cx; ++x)
            picture.m_Dots.push_back(ToDot(pixels->GetPixel(x, y)));
    }
    return CreateFromPicture(std::move(picture));
}

bool CBitmap::DeleteObject()
{
    if (!m_Bitmap)
        return false;
    GetBitmapTable().Remove(std::exchange(m_Bitmap, nullptr));
    return true;
}

CSize CBitmap::GetSize() const
{
    const CPicture* picture = Find(m_Bitmap);
    return picture ? picture->m_Size : CSize();
}

CPicture* CBitmap::Find(HBITMAP bitmap)
{
    return GetBitmapTable().Find(bitmap);
}

} // namespace utility
