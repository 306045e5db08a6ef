#pragma once

#include "platform/base/Colour.h"
#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

/// Colours and scale of styled dialogs, from the desktop's palette: light or dark, as it is set.
///
/// All top-level windows get MSG_CHANGE_VISUAL_MANAGER when the palette or the switch changes.
/// User-interface thread.
class UTILITY_UI_API CBCGPVisualManager
{
public:
    /// Never null.
    static CBCGPVisualManager* GetInstance();

    /// Whether dialogs take the colours below; on unless a host turns it off.
    bool IsStylingDialogs() const { return m_IsStyling; }
    void EnableDialogStyling(bool enable);
    COLORREF GetDialogBackground() const;
    COLORREF GetDialogTextColor() const;
    /// Whether the background is darker than the text.
    bool IsDark() const;

    /// Layout is in pixels at 96 dots per inch, which the window system scales: the factor is 1.
    double GetScaleFactor() const { return 1.0; }
    int ScaleByDPI(int value) const { return value; }

    /// Tells all top-level windows that colours have changed.
    void NotifyChange() const;

private:
    CBCGPVisualManager() = default;

    bool m_IsStyling = true;
};

} // namespace utility
