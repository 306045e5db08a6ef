#include "platform/ui/SystemMetrics.h"

#include "platform/base/Rect.h"
#include "platform/ui/Monitor.h"

#include <cstdlib>

namespace utility
{

namespace
{

constexpr int EDGE = 2;
constexpr int SCROLL_BAR = 16;
constexpr int MENU_BUTTON = 19;

CRect GetVirtualScreen()
{
    CRect all;
    for (const CMonitor& monitor : GetMonitors())
        all.UnionRect(all, monitor.m_Area);
    return all;
}

} // namespace

int GetSystemMetrics(int metric)
{
    switch (metric)
    {
    case SM_CXSCREEN:
        return GetMonitors().front().m_Area.Width();
    case SM_CYSCREEN:
        return GetMonitors().front().m_Area.Height();
    case SM_CXVSCROLL:
        return SCROLL_BAR;
    case SM_CXEDGE:
        return EDGE;
    case SM_CXMENUSIZE:
        return MENU_BUTTON;
    case SM_XVIRTUALSCREEN:
        return GetVirtualScreen().left;
    case SM_YVIRTUALSCREEN:
        return GetVirtualScreen().top;
    case SM_CXVIRTUALSCREEN:
        return GetVirtualScreen().Width();
    case SM_CYVIRTUALSCREEN:
        return GetVirtualScreen().Height();
    case SM_CMONITORS:
        return static_cast<int>(GetMonitors().size());
    default:
        return 0;
    }
}

bool SystemParametersInfoW(UINT action, UINT, CRect* result, UINT)
{
    if (action != SPI_GETWORKAREA || !result)
        return false;
    *result = GetPrimaryWorkArea();
    return true;
}

int GetScreenDotsPerInch()
{
    constexpr int LAYOUT_DOTS = 96;
    return LAYOUT_DOTS;
}

int MulDiv(int value, int numerator, int denominator)
{
    if (denominator == 0)
        return -1;
    const std::int64_t product = std::int64_t{value} * numerator;
    const std::int64_t half = std::abs(std::int64_t{denominator}) / 2;
    const bool isNegative = (product < 0) != (denominator < 0);
    const std::int64_t result = (std::abs(product) + half) / std::abs(std::int64_t{denominator});
    return static_cast<int>(isNegative ? -result : result);
}

} // namespace utility
