#include "dialogs/WindowGeometry.h"

#include <algorithm>

namespace utility
{

namespace
{

// Places may come from damaged settings: no square of theirs may overflow.
double SquaredDistance(const CRect& area, CPoint point)
{
    const auto outside = [](std::int64_t first, std::int64_t end, std::int64_t value)
    {
        return std::max({first - value, value - (end - 1), std::int64_t(0)});
    };
    const double x = outside(area.left, area.right, point.x);
    const double y = outside(area.top, area.bottom, point.y);
    return x * x + y * y;
}

} // namespace

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

bool ShiftInside(const CRect& area, CRect& place)
{
    const CRect before = place;
    if (place.bottom > area.bottom)
        place.OffsetRect(0, area.bottom - place.bottom);
    if (place.top < area.top)
        place.OffsetRect(0, area.top - place.top);
    if (place.right > area.right)
        place.OffsetRect(area.right - place.right, 0);
    if (place.left < area.left)
        place.OffsetRect(area.left - place.left, 0);
    return place != before;
}

CRect CentreInside(const CRect& area, CSize size)
{
    const CPoint corner(area.left + (area.Width() - size.cx) / 2,
                        area.top + (area.Height() - size.cy) / 2);
    return {corner, size};
}

CSideBySide PlanSideBySide(const CRect& screen, std::span<const CMonitorPlace> monitors,
                           const CRect& first, const CRect& second)
{
    if (monitors.size() < 2)
    {
        const LONG middle = screen.left + screen.Width() / 2;
        return {{screen.left, screen.top, middle, screen.bottom},
                {middle, screen.top, screen.right, screen.bottom},
                false};
    }

    const LONG quarter = screen.Width() / 4;
    const LONG middle = screen.CenterPoint().y;
    const CMonitorPlace& left = *FindNearestMonitor(monitors, {screen.left + quarter, middle});
    const CMonitorPlace& right = *FindNearestMonitor(monitors, {screen.right - quarter, middle});
    const bool isSecondAtLeft =
        left.m_Area.PtInRect(second.CenterPoint()) && !left.m_Area.PtInRect(first.CenterPoint());
    if (isSecondAtLeft)
        return {right.m_WorkArea, left.m_WorkArea, true};
    return {left.m_WorkArea, right.m_WorkArea, true};
}

const CMonitorPlace* FindNearestMonitor(std::span<const CMonitorPlace> monitors, CPoint point)
{
    const auto nearest = std::ranges::min_element(
        monitors, {},
        [point](const CMonitorPlace& monitor) { return SquaredDistance(monitor.m_Area, point); });
    return nearest == monitors.end() ? nullptr : &*nearest;
}

} // namespace utility
