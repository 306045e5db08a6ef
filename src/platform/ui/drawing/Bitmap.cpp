#include "platform/ui/drawing/Bitmap.h"

#include "platform/ui/HandleTable.h"

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
