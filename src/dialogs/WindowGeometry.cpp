#include "dialogs/WindowGeometry.h"

#include "platform/ui/Monitor.h"

namespace utility
{

bool IsPlaceOnScreen(const CRect& place, const CRect& screen)
{
    const auto isAcross = [&screen](LONG x)
    {
        return x >= screen.left && x < screen.right;
    };
    const auto isDown = [&screen](LONG y)
    {
        return y >= screen.top && y < screen.bottom;
    };
    return isDown(place.top) && isDown(place.bottom) && isAcross(place.left) &&
           isAcross(place.right) && place.bottom >= place.top && place.right >= place.left;
}

CRect CentreInside(const CRect& area, CSize size)
{
    const CPoint corner(area.left + (area.Width() - size.cx) / 2,
                        area.top + (area.Height() - size.cy) / 2);
    return {corner, size};
}

CSideBySide SplitInHalves(const CRect& area)
{
    const LONG middle = area.CenterPoint().x;
    return {{area.left, area.top, middle, area.bottom},
            {middle, area.top, area.right, area.bottom}};
}

CSideBySide ShareMonitors(const CMonitor& left, const CMonitor& right, const CRect& first,
                          const CRect& second)
{
    const bool isSecondAtLeft =
        left.m_Area.PtInRect(second.CenterPoint()) && !left.m_Area.PtInRect(first.CenterPoint());
    if (isSecondAtLeft)
        return {right.m_WorkArea, left.m_WorkArea};
    return {left.m_WorkArea, right.m_WorkArea};
}

} // namespace utility
