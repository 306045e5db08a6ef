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

/// The place moved, not resized, into the work area of the screen nearest to its top left corner;
/// that corner stays visible if the whole does not fit.
UTILITY_UI_API CRect KeepOnScreen(const CRect& place);

} // namespace utility
