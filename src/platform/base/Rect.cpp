#include "platform/base/Rect.h"

#include <algorithm>

namespace utility
{

void CRect::SetRect(LONG toLeft, LONG toTop, LONG toRight, LONG toBottom)
{
    *this = CRect(toLeft, toTop, toRight, toBottom);
}

void CRect::InflateRect(LONG atLeft, LONG atTop, LONG atRight, LONG atBottom)
{
    left -= atLeft;
    top -= atTop;
    right += atRight;
    bottom += atBottom;
}

void CRect::DeflateRect(LONG atLeft, LONG atTop, LONG atRight, LONG atBottom)
{
    InflateRect(-atLeft, -atTop, -atRight, -atBottom);
}

void CRect::OffsetRect(LONG dx, LONG dy)
{
    left += dx;
    top += dy;
    right += dx;
    bottom += dy;
}

void CRect::NormalizeRect()
{
    if (left > right)
        std::swap(left, right);
    if (top > bottom)
        std::swap(top, bottom);
}

bool CRect::UnionRect(const CRect& first, const CRect& second)
{
    if (first.IsRectEmpty() && second.IsRectEmpty())
        *this = CRect();
    else if (first.IsRectEmpty())
        *this = second;
    else if (second.IsRectEmpty())
        *this = first;
    else
    {
        *this = CRect(std::min(first.left, second.left), std::min(first.top, second.top),
                      std::max(first.right, second.right), std::max(first.bottom, second.bottom));
    }
    return !IsRectEmpty();
}

bool CRect::IntersectRect(const CRect& first, const CRect& second)
{
    *this = CRect(std::max(first.left, second.left), std::max(first.top, second.top),
                  std::min(first.right, second.right), std::min(first.bottom, second.bottom));
    if (!IsRectEmpty())
        return true;

    *this = CRect();
    return false;
}

CRect CRect::operator+(CPoint offset) const
{
    return {left + offset.x, top + offset.y, right + offset.x, bottom + offset.y};
}

CRect CRect::operator-(CPoint offset) const
{
    return *this + -offset;
}

} // namespace utility
