#pragma once

#include "platform/base/Export.h"
#include "platform/base/Point.h"
#include "platform/base/Size.h"
#include "platform/base/Types.h"

namespace utility
{

/// A rectangle in whole units; right and bottom lie just outside.
class UTILITY_CORE_API CRect
{
public:
    constexpr CRect() = default;
    constexpr CRect(LONG toLeft, LONG toTop, LONG toRight, LONG toBottom)
        : left(toLeft),
          top(toTop),
          right(toRight),
          bottom(toBottom)
    {
    }
    constexpr CRect(CPoint topLeft, CSize size)
        : CRect(topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy)
    {
    }
    constexpr CRect(CPoint topLeft, CPoint bottomRight)
        : CRect(topLeft.x, topLeft.y, bottomRight.x, bottomRight.y)
    {
    }

    constexpr bool operator==(const CRect& other) const = default;

    constexpr LONG Width() const { return right - left; }
    constexpr LONG Height() const { return bottom - top; }
    constexpr CSize Size() const { return {Width(), Height()}; }
    constexpr CPoint TopLeft() const { return {left, top}; }
    constexpr CPoint BottomRight() const { return {right, bottom}; }
    constexpr CPoint CenterPoint() const { return {left + Width() / 2, top + Height() / 2}; }
    /// No area: a width or height of 0 or less.
    constexpr bool IsRectEmpty() const { return left >= right || top >= bottom; }
    constexpr bool IsRectNull() const { return *this == CRect(); }
    constexpr bool PtInRect(CPoint point) const
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }

    void SetRect(LONG toLeft, LONG toTop, LONG toRight, LONG toBottom);
    void SetRectEmpty() { *this = CRect(); }
    /// Moves each side outwards; negative amounts move it inwards.
    void InflateRect(LONG dx, LONG dy) { InflateRect(dx, dy, dx, dy); }
    void InflateRect(CSize size) { InflateRect(size.cx, size.cy); }
    void InflateRect(LONG atLeft, LONG atTop, LONG atRight, LONG atBottom);
    void DeflateRect(LONG dx, LONG dy) { InflateRect(-dx, -dy); }
    void DeflateRect(CSize size) { InflateRect(-size.cx, -size.cy); }
    void DeflateRect(LONG atLeft, LONG atTop, LONG atRight, LONG atBottom);
    void OffsetRect(LONG dx, LONG dy);
    void OffsetRect(CPoint offset) { OffsetRect(offset.x, offset.y); }
    /// Exchanges sides so that width and height are not negative.
    void NormalizeRect();

    /// The smallest rectangle around both; an empty one does not count. False if the result is
    /// empty.
    bool UnionRect(const CRect& first, const CRect& second);
    /// What both cover; all zeros and false if that is nothing.
    bool IntersectRect(const CRect& first, const CRect& second);

    CRect operator+(CPoint offset) const;
    CRect operator-(CPoint offset) const;

    LONG left = 0;
    LONG top = 0;
    LONG right = 0;
    LONG bottom = 0;
};

} // namespace utility
