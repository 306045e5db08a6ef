#include "platform/ui/controls/ImageList.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::uint32_t OPAQUE_DOT = 0xFF000000;

std::uint32_t ToDot(COLORREF colour)
{
    return OPAQUE_DOT | static_cast<std::uint32_t>(GetRValue(colour)) << 16 |
           static_cast<std::uint32_t>(GetGValue(colour)) << 8 | GetBValue(colour);
}

CPicture CutPicture(const CPicture& strip, int left, int width, std::uint32_t clear)
{
    CPicture piece{CSize(width, strip.m_Size.cy), {}};
    piece.m_Dots.reserve(static_cast<std::size_t>(width) *
                         static_cast<std::size_t>(strip.m_Size.cy));
    for (int y = 0; y < strip.m_Size.cy; ++y)
    {
        const auto* line =
            strip.m_Dots.data() + static_cast<std::ptrdiff_t>(y) * strip.m_Size.cx + left;
        piece.m_Dots.insert(piece.m_Dots.end(), line, line + width);
    }
    std::replace(piece.m_Dots.begin(), piece.m_Dots.end(), clear, std::uint32_t{0});
    return piece;
}

} // namespace

IMPLEMENT_DYNAMIC(CImageList, CObject)

bool CImageList::Create(HBITMAP strip, int width, COLORREF clear)
{
    const CPicture* picture = CBitmap::Find(strip);
    if (!picture || width < 1 || width > picture->m_Size.cx)
        return false;
    std::vector<CPicture> pictures;
    for (int left = 0; left + width <= picture->m_Size.cx; left += width)
        pictures.push_back(CutPicture(*picture, left, width, ToDot(clear)));
    m_Pictures = std::move(pictures);
    return true;
}

bool CImageList::Create(UINT id, int width, COLORREF clear)
{
    CBitmap strip;
    return strip.LoadBitmap(id) && Create(strip.GetSafeHandle(), width, clear);
}

CSize CImageList::GetSize() const
{
    return m_Pictures.empty() ? CSize() : m_Pictures.front().m_Size;
}

const CPicture* CImageList::GetPicture(int image) const
{
    const auto index = static_cast<std::size_t>(image);
    return image >= 0 && index < m_Pictures.size() ? &m_Pictures[index] : nullptr;
}

} // namespace utility
