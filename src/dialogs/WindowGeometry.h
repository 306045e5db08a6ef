#pragma once

#include "platform/base/Export.h"
#include "platform/base/Rect.h"

#include <span>

namespace utility
{

/// A monitor and the part of it that windows may cover, in pixels of the virtual screen.
struct CMonitorPlace
{
    CRect m_Area;
    CRect m_WorkArea;

    bool operator==(const CMonitorPlace&) const = default;
};

/// Whether a window that was kept with these sides can be shown again: all four lie on the screen,
/// in order. Right and bottom lie just outside a rectangle, yet must be pixels of the screen.
UTILITY_UI_API bool IsPlaceOnScreen(const CRect& place, const CRect& screen);

/// Shifts a place so that its bottom, top, right and left come inside an area, in this order: of
/// what is too large the top left corner stays visible. True if it moved.
UTILITY_UI_API bool ShiftInside(const CRect& area, CRect& place);

/// A rectangle of that size with its centre at an area's.
UTILITY_UI_API CRect CentreInside(const CRect& area, CSize size);

/// Where two windows go that shall stand side by side.
struct CSideBySide
{
    CRect m_First;
    CRect m_Second;
    bool m_Maximise = false; // once they stand there
};

/// On one monitor each takes half of `screen`, on more each has a monitor: those at a quarter and
/// at three quarters of the width. A window whose centre lies in the one at the left stays there;
/// if that says nothing, the first goes there.
///
/// `screen` is the virtual screen down to where windows may reach.
UTILITY_UI_API CSideBySide PlanSideBySide(const CRect& screen,
                                          std::span<const CMonitorPlace> monitors,
                                          const CRect& first, const CRect& second);

/// The monitor that a point lies on, else the one whose area is nearest; null without monitors.
UTILITY_UI_API const CMonitorPlace* FindNearestMonitor(std::span<const CMonitorPlace> monitors,
                                                       CPoint point);

} // namespace utility
