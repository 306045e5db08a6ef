#include "dialogs/controls/ColorWell.h"

#include "dialogs/controls/PopupColorWell.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/SystemMetrics.h"
#include "platform/ui/drawing/Brush.h"
#include "platform/ui/drawing/DC.h"

#include <array>

namespace utility
{

IMPLEMENT_DYNAMIC(SECColorWell, SECWellButton)

namespace
{

constexpr int ARROW_ROOM = 14; // pixels at the right
constexpr int ARROW_HALF = 4;  // half of the arrow's width, and its height

} // namespace

const CMessageMap* SECColorWell::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {MessageRow<&SECColorWell::OnSysKeyDown>(WM_SYSKEYDOWN)};
    static const CMessageMap MAP{SECWellButton::GetMessageMap(), ROWS};
    return &MAP;
}

void SECColorWell::OnBnClicked()
{
    COLORREF colour = GetColor();
    // The window may have ended, and this object with it, when the palette closes without a choice.
    SECPopupColorWell popup;
    if (!popup.Choose(*this, colour) || colour == GetColor())
        return;
    SetColor(colour);
    NotifyParent(CWN_COLOURCHANGE);
}

void SECColorWell::DrawFace(CDC& context, const CRect& place)
{
    CRect well = place;
    well.right -= ARROW_ROOM;
    SECWellButton::DrawFace(context, well);

    const CPoint tip(well.right + ARROW_ROOM / 2, place.CenterPoint().y + ARROW_HALF / 2);
    const std::array<CPoint, 3> arrow = {tip, tip + CPoint(-ARROW_HALF, -ARROW_HALF),
                                         tip + CPoint(ARROW_HALF, -ARROW_HALF)};
    CBrush brush(GetSysColor(COLOR_WINDOWTEXT));
    CBrush* previous = context.SelectObject(&brush);
    context.Polygon(arrow);
    context.SelectObject(previous);
}

LRESULT SECColorWell::OnSysKeyDown(WPARAM key, LPARAM lParam)
{
    if (key != VK_DOWN)
        return DefWindowProc(WM_SYSKEYDOWN, key, lParam);
    OnBnClicked();
    return 0;
}

} // namespace utility
