#include "dialogs/controls/WellButton.h"

#include "platform/base/Rect.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/SystemMetrics.h"
#include "platform/ui/controls/Button.h"
#include "platform/ui/drawing/Brush.h"
#include "platform/ui/drawing/PaintDC.h"

namespace utility
{

IMPLEMENT_DYNAMIC(SECWellButton, CWnd)

namespace
{

constexpr int EDGE = 3; // pixels from the button's side to its colour

} // namespace

bool SECWellButton::Create(const char16_t* name, DWORD style, const CRect& place, CWnd* parent,
                           UINT id)
{
    return CreateEx(0, u"SECWellButton", name, style | WS_CHILD, place, parent, id);
}

const CMessageMap* SECWellButton::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {
        MessageRow<&SECWellButton::OnPaint>(WM_PAINT),
        MessageRow<&SECWellButton::OnLButtonDown>(WM_LBUTTONDOWN),
        MessageRow<&SECWellButton::OnLButtonDown>(WM_LBUTTONDBLCLK),
        MessageRow<&SECWellButton::OnLButtonUp>(WM_LBUTTONUP),
        MessageRow<&SECWellButton::OnCaptureChanged>(WM_CAPTURECHANGED),
        MessageRow<&SECWellButton::OnKeyDown>(WM_KEYDOWN),
        MessageRow<&SECWellButton::OnKeyUp>(WM_KEYUP),
        MessageRow<&SECWellButton::OnFocusChanged>(WM_SETFOCUS),
        MessageRow<&SECWellButton::OnFocusChanged>(WM_KILLFOCUS),
        MessageRow<&SECWellButton::OnGetDlgCode>(WM_GETDLGCODE)};
    static const CMessageMap MAP{CWnd::GetMessageMap(), ROWS};
    return &MAP;
}

void SECWellButton::SetColor(COLORREF colour)
{
    if (m_Colour == colour)
        return;
    m_Colour = colour;
    Invalidate();
}

void SECWellButton::OnBnClicked()
{
    NotifyParent(BN_CLICKED);
}

void SECWellButton::NotifyParent(UINT code)
{
    if (const CWnd* parent = GetParent())
        parent->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), static_cast<int>(code)),
                            reinterpret_cast<LPARAM>(GetSafeHwnd()));
}

void SECWellButton::DrawFace(CDC& context, const CRect& place)
{
    context.FillSolidRect(place, m_Colour);
    const CBrush frame(GetSysColor(COLOR_WINDOWTEXT));
    context.FrameRect(place, &frame);
}

LRESULT SECWellButton::OnPaint(WPARAM, LPARAM)
{
    CPaintDC context(this);
    const CRect client = GetClientRect();
    context.FillSolidRect(client, GetSysColor(COLOR_BTNFACE));

    const CBrush edge(GetSysColor(m_IsPressed ? COLOR_WINDOWTEXT : COLOR_BTNSHADOW));
    context.FrameRect(client, &edge);
    CRect face = client;
    face.DeflateRect(EDGE, EDGE);
    if (m_IsPressed)
        face.OffsetRect(1, 1);
    if (IsWindowEnabled())
        DrawFace(context, face);
    if (GetFocus() == this)
    {
        CRect focus = client;
        focus.DeflateRect(1, 1);
        context.DrawFocusRect(focus);
    }
    return 0;
}

LRESULT SECWellButton::OnLButtonDown(WPARAM, LPARAM)
{
    SetFocus();
    SetCapture();
    SetPressed(true);
    return 0;
}

LRESULT SECWellButton::OnLButtonUp(WPARAM, LPARAM point)
{
    if (!m_IsPressed)
        return 0;
    const bool isInside = GetClientRect().PtInRect({GET_X_LPARAM(point), GET_Y_LPARAM(point)});
    ReleaseCapture();
    SetPressed(false);
    if (isInside)
        OnBnClicked();
    return 0;
}

LRESULT SECWellButton::OnCaptureChanged(WPARAM, LPARAM)
{
    SetPressed(false);
    return 0;
}

LRESULT SECWellButton::OnKeyDown(WPARAM key, LPARAM lParam)
{
    if (key == VK_SPACE)
        SetPressed(true);
    else if (key == VK_RETURN)
        OnBnClicked();
    else
        return DefWindowProc(WM_KEYDOWN, key, lParam);
    return 0;
}

LRESULT SECWellButton::OnKeyUp(WPARAM key, LPARAM lParam)
{
    if (key != VK_SPACE || !m_IsPressed)
        return DefWindowProc(WM_KEYUP, key, lParam);
    SetPressed(false);
    OnBnClicked();
    return 0;
}

LRESULT SECWellButton::OnFocusChanged(WPARAM, LPARAM)
{
    SetPressed(false);
    Invalidate();
    return 0;
}

LRESULT SECWellButton::OnGetDlgCode(WPARAM, LPARAM)
{
    return DLGC_BUTTON;
}

void SECWellButton::SetPressed(bool isPressed)
{
    if (m_IsPressed == isPressed)
        return;
    m_IsPressed = isPressed;
    Invalidate();
}

} // namespace utility
