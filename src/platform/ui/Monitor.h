#pragma once

#include "platform/base/Export.h"
#include "platform/base/Rect.h"

#include <vector>

namespace utility
{

/// A screen: all of it, and what panels of the desktop leave free. Pixels at 96 dots per inch.
struct CMonitor
{
    CRect m_Area;
    CRect m_WorkArea;
};

/// All screens, the primary one first; never empty.
UTILITY_UI_API std::vector<CMonitor> GetMonitors();

/// The screen that the point lies on, else the nearest one.
UTILITY_UI_API CMonitor MonitorFromPoint(CPoint point);
UTILITY_UI_API CRect GetPrimaryWorkArea();

/// The place moved, not resized, into an area. Bottom and right give way first, so that of what is
/// too large the top left corner stays visible.
UTILITY_UI_API CRect ShiftInside(const CRect& place, const CRect& area);
/// The same for the work area of the screen nearest to the place's top left corner.
UTILITY_UI_API CRect KeepOnScreen(const CRect& place);

} // namespace utility
