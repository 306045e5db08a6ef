#pragma once

#include "platform/base/Export.h"
#include "platform/base/Rect.h"
#include "platform/base/Types.h"

namespace utility
{

class CWnd;

/// Hides a control, with `hideInside` those within it too, and moves up by its height every child
/// that begins below its top. Nothing without such a control.
UTILITY_UI_API void HideControlAndSqueezeDialog(CWnd& parent, UINT id, bool hideInside);
/// The same; the window gets lower by that height.
UTILITY_UI_API void HideControlAndResizeDialog(CWnd& parent, UINT id, bool hideInside);

/// What closing the gap that a hidden control leaves does to another child.
struct CSqueezedChild
{
    CRect m_Place;
    bool m_Hides = false;

    bool operator==(const CSqueezedChild&) const = default;
};

UTILITY_UI_API CSqueezedChild SqueezeChild(const CRect& gap, const CRect& child, bool hideInside);

} // namespace utility
