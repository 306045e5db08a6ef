#pragma once

#include "platform/base/Export.h"
#include "platform/base/Rect.h"

namespace utility
{

struct CMonitor;

/// Whether a window that was kept with these sides can be shown again: all four lie on the screen,
/// in order. Right and bottom lie just outside a rectangle, yet must be pixels of the screen.
UTILITY_UI_API bool IsPlaceOnScreen(const CRect& place, const CRect& screen);

/// A rectangle of that size with its centre at an area's.
UTILITY_UI_API CRect CentreInside(const CRect& area, CSize size);

/// Where two windows go that shall stand side by side.
struct CSideBySide
{
    CRect m_First;
    CRect m_Second;

    bool operator==(const CSideBySide&) const = default;
};

/// The first takes the left half, the second the right one.
UTILITY_UI_API CSideBySide SplitInHalves(const CRect& area);
/// Each takes the work area of a monitor. The one whose centre lies on the left monitor stays
/// there; if that says nothing, the first goes there.
UTILITY_UI_API CSideBySide ShareMonitors(const CMonitor& left, const CMonitor& right,
                                         const CRect& first, const CRect& second);

} // namespace utility
