#include "dialogs/SqueezeDialog.h"

#include "platform/system/window/WindowStyles.h"
#include "platform/system/window/Wnd.h"

namespace utility
{

namespace
{

CRect PlaceInParent(const CWnd& parent, const CWnd& child)
{
    CRect place = child.GetWindowRect();
    parent.ScreenToClient(place);
    return place;
}

/// The height of the gap that was closed; 0 without such a control.
int HideAndSqueeze(CWnd& parent, UINT id, bool hideInside)
{
    CWnd* hidden = parent.GetDlgItem(static_cast<int>(id));
    if (!hidden)
        return 0;

    const CRect gap = PlaceInParent(parent, *hidden);
    for (CWnd* child : parent.GetChildren())
    {
        if (child == hidden)
            continue;
        const CRect before = PlaceInParent(parent, *child);
        const CSqueezedChild after = SqueezeChild(gap, before, hideInside);
        if (after.m_Hides)
            child->ShowWindow(SW_HIDE);
        if (after.m_Place != before)
            child->MoveWindow(after.m_Place);
    }
    hidden->ShowWindow(SW_HIDE);
    return gap.Height();
}

} // namespace

void HideControlAndSqueezeDialog(CWnd& parent, UINT id, bool hideInside)
{
    HideAndSqueeze(parent, id, hideInside);
}

void HideControlAndResizeDialog(CWnd& parent, UINT id, bool hideInside)
{
    const int height = HideAndSqueeze(parent, id, hideInside);
    const CSize size = parent.GetWindowRect().Size();
    parent.SetWindowPos(nullptr, 0, 0, size.cx, size.cy - height,
                        SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

CSqueezedChild SqueezeChild(const CRect& gap, const CRect& child, bool hideInside)
{
    CSqueezedChild squeezed{child, false};
    squeezed.m_Hides = hideInside && child.left >= gap.left && child.right <= gap.right &&
                       child.top >= gap.top && child.bottom <= gap.bottom;
    if (child.top > gap.top)
        squeezed.m_Place.OffsetRect(0, -gap.Height());
    return squeezed;
}

} // namespace utility
