#include "platform/ui/BCGPVisualManager.h"

#include "platform/system/window/Wnd.h"
#include "platform/ui/SystemMetrics.h"
#include "resources/MessageNames.h"

namespace utility
{

namespace
{

/// How bright a colour looks, in 0 to 255.
int BrightnessOf(COLORREF colour)
{
    return (GetRValue(colour) * 299 + GetGValue(colour) * 587 + GetBValue(colour) * 114) / 1000;
}

} // namespace

CBCGPVisualManager* CBCGPVisualManager::GetInstance()
{
    static CBCGPVisualManager manager;
    return &manager;
}

void CBCGPVisualManager::EnableDialogStyling(bool enable)
{
    if (std::exchange(m_IsStyling, enable) != enable)
        NotifyChange();
}

COLORREF CBCGPVisualManager::GetDialogBackground() const
{
    return GetSysColor(COLOR_BTNFACE);
}

COLORREF CBCGPVisualManager::GetDialogTextColor() const
{
    return GetSysColor(COLOR_BTNTEXT);
}

bool CBCGPVisualManager::IsDark() const
{
    return BrightnessOf(GetDialogBackground()) < BrightnessOf(GetDialogTextColor());
}

void CBCGPVisualManager::NotifyChange() const
{
    for (const HWND window : CWnd::GetTopLevelWindows())
    {
        if (const CWnd* target = CWnd::FromHandle(window))
            target->SendMessage(MSG_CHANGE_VISUAL_MANAGER);
    }
}

} // namespace utility
