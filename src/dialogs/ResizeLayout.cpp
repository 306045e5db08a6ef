#include "dialogs/ResizeLayout.h"

namespace utility
{

CRect CResizeLayout::PlaceStretchControl() const
{
    CRect place = m_Reference;
    place.right += m_Change.cx;
    place.bottom += m_Change.cy;
    return place;
}

CRect CResizeLayout::Place(const CRect& child, bool hasFixedSize) const
{
    CRect place = child;
    if (child.right >= m_Reference.right)
    {
        const LONG lastKeptLeft = hasFixedSize ? m_Reference.left : m_Reference.right;
        place.right += m_Change.cx;
        if (child.left > lastKeptLeft)
            place.left += m_Change.cx;
    }
    if (child.bottom >= m_Reference.bottom)
    {
        place.bottom += m_Change.cy;
        if (hasFixedSize || !GrowsDown(child))
            place.top += m_Change.cy;
    }
    return place;
}

bool CResizeLayout::GrowsDown(const CRect& child) const
{
    // On purpose without a look at the top in the second case: see the class comment.
    const bool sharesLeft = child.left == m_Reference.left && child.left <= m_Reference.right;
    return child.top <= m_Reference.top || sharesLeft;
}

bool TakesSecondStretchControl(const CStretchChoice& choice, int heightChange)
{
    if (!choice.m_HasSecond)
        return false;
    bool takesSecond = choice.m_PrefersSecond && choice.m_SecondMinimum >= 1;
    if (takesSecond && choice.m_SecondHeight + heightChange < choice.m_SecondMinimum)
        takesSecond = false;
    if (!takesSecond && choice.m_FirstHeight + heightChange < choice.m_FirstMinimum)
        takesSecond = true;
    return takesSecond;
}

} // namespace utility
