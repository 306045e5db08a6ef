#pragma once

#include "platform/base/Export.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

constexpr UINT STM_SETIMAGE = 0x0172; // IMAGE_..., handle; answers the one before
constexpr UINT STM_GETIMAGE = 0x0173;

// Codes of WM_COMMAND to the parent, with SS_NOTIFY
constexpr UINT STN_CLICKED = 0;
constexpr UINT STN_DBLCLK = 1;

/// A label, a picture or an etched line.
///
/// The letter behind "&" in a label gives the focus to the next child that takes it.
class UTILITY_UI_API CStatic : public CWnd
{
    DECLARE_DYNAMIC(CStatic)

public:
    bool Create(const char16_t* text, DWORD style, const CRect& place, CWnd* parent, UINT id);

    /// The caller keeps the picture; it is shown from a copy. A picture of SS_BITMAP or SS_ICON
    /// gives its size to the label unless it stands in the middle. The picture shown before.
    HBITMAP SetBitmap(HBITMAP bitmap);
    HBITMAP GetBitmap() const;
    HICON SetIcon(HICON icon);
    HICON GetIcon() const;
};

} // namespace utility
