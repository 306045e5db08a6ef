#include "dialogs/controls/Splash.h"

#include "dialogs/WindowPlacement.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/drawing/Bitmap.h"
#include "platform/ui/drawing/MemoryDC.h"
#include "platform/ui/drawing/PaintDC.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CSplash, CWnd)

namespace
{

constexpr WPARAM END_TIMER = 1;
constexpr int STATUS_HEIGHT = 24; // pixels at the bottom of the picture
constexpr int STATUS_INDENT = 8;

} // namespace

const CMessageMap* CSplash::GetMessageMap() const
{
    static constexpr CMessageRow ROWS[] = {MessageRow<&CSplash::OnPaint>(WM_PAINT),
                                           MessageRow<&CSplash::OnTimer>(WM_TIMER),
                                           MessageRow<&CSplash::OnDismiss>(WM_LBUTTONDOWN),
                                           MessageRow<&CSplash::OnDismiss>(WM_KEYDOWN)};
    static const CMessageMap MAP{CWnd::GetMessageMap(), ROWS};
    return &MAP;
}

bool CSplash::Show(CBitmap& picture, UINT milliseconds, CWnd* parent)
{
    const CSize size = picture.GetSize();
    if (size.cx == 0 || size.cy == 0)
        return false;

    m_Picture = &picture;
    CRect place;
    CentreWindow({CPoint(), size}, nullptr, place);
    if (!CreateEx(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, u"Splash", u"", WS_POPUP, place, parent))
        return false;
    ShowWindow(SW_SHOWNORMAL);
    UpdateWindow();
    if (milliseconds != 0)
        SetTimer(END_TIMER, milliseconds);
    return true;
}

void CSplash::SetStatus(const CString& text)
{
    m_Status = text;
    SetWindowText(text);
    Invalidate();
    UpdateWindow();
}

LRESULT CSplash::OnPaint(WPARAM, LPARAM)
{
    CPaintDC context(this);
    const CRect client = GetClientRect();
    CMemoryDC source;
    CBitmap* previous = source.SelectObject(m_Picture);
    context.BitBlt(client, &source, {}, SRCCOPY);
    source.SelectObject(previous);

    CRect line = client;
    line.top = line.bottom - STATUS_HEIGHT;
    line.left += STATUS_INDENT;
    context.SetBkMode(TRANSPARENT);
    context.DrawText(m_Status, line, DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    return 0;
}

LRESULT CSplash::OnTimer(WPARAM id, LPARAM)
{
    if (id == END_TIMER)
        DestroyWindow();
    return 0;
}

LRESULT CSplash::OnDismiss(WPARAM, LPARAM)
{
    DestroyWindow();
    return 0;
}

} // namespace utility
