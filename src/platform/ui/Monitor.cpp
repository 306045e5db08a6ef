#include "platform/ui/Monitor.h"

#include <algorithm>

namespace utility
{

namespace
{

/// How far a coordinate lies outside a span; 0 within it.
std::int64_t Outside(LONG at, LONG first, LONG end)
{
    return std::max({std::int64_t{first} - at, std::int64_t{at} - (end - 1), std::int64_t{0}});
}

std::int64_t DistanceSquared(const CRect& area, CPoint point)
{
    const std::int64_t dx = Outside(point.x, area.left, area.right);
    const std::int64_t dy = Outside(point.y, area.top, area.bottom);
    return dx * dx + dy * dy;
}

} // namespace

CMonitor MonitorFromPoint(CPoint point)
{
    const std::vector<CMonitor> monitors = GetMonitors();
    return *std::min_element(
        monitors.begin(), monitors.end(),
        [point](const CMonitor& left, const CMonitor& right)
        { return DistanceSquared(left.m_Area, point) < DistanceSquared(right.m_Area, point); });
}

CRect GetPrimaryWorkArea()
{
    return GetMonitors().front().m_WorkArea;
}

CRect ShiftInside(const CRect& place, const CRect& area)
{
    const LONG left = std::max(std::min(place.left, area.right - place.Width()), area.left);
    const LONG top = std::max(std::min(place.top, area.bottom - place.Height()), area.top);
    return {CPoint(left, top), place.Size()};
}

CRect KeepOnScreen(const CRect& place)
{
    return ShiftInside(place, MonitorFromPoint(place.TopLeft()).m_WorkArea);
}

} // namespace utility
