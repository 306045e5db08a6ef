#include "platform/base/Rect.h"
#include "platform/system/window/MessageScope.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowPeer.h"
#include "platform/system/window/WindowRecords.h"
#include "platform/system/window/WindowTable.h"
#include "platform/system/window/Wnd.h"

#include <algorithm>

namespace utility
{

// Place

void CWnd::MoveWindow(const CRect& place, bool repaint)
{
    if (!m_Peer)
        return;
    const CMessageScope scope;
    Place(place);
    if (repaint)
        Invalidate();
}

void CWnd::MoveWindow(int x, int y, int width, int height, bool repaint)
{
    MoveWindow(CRect(CPoint(x, y), CSize(width, height)), repaint);
}

/// Within the limits that the window sets itself.
void CWnd::Place(const CRect& place)
{
    CSize size(std::max(place.Width(), 0), std::max(place.Height(), 0));
    if (!(GetStyle() & WS_CHILD) && (GetStyle() & WS_THICKFRAME))
    {
        MINMAXINFO limits;
        limits.ptMaxTrackSize = CPoint(INT16_MAX, INT16_MAX);
        WindowProc(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
        size.cx = std::max(std::min(size.cx, limits.ptMaxTrackSize.x), limits.ptMinTrackSize.x);
        size.cy = std::max(std::min(size.cy, limits.ptMaxTrackSize.y), limits.ptMinTrackSize.y);
    }
    if (m_Peer)
        m_Peer->Move(CRect(place.TopLeft(), size));
}

bool CWnd::SetWindowPos(const CWnd* behind, int x, int y, int width, int height, UINT flags)
{
    if (!m_Peer)
        return false;
    const CMessageScope scope;
    const CRect present = m_Peer->GetPlace();
    const CPoint topLeft = flags & SWP_NOMOVE ? present.TopLeft() : CPoint(x, y);
    const CSize size = flags & SWP_NOSIZE ? present.Size() : CSize(width, height);
    if (!(flags & SWP_NOZORDER) && (GetStyle() & WS_CHILD))
    {
        const HWND above = behind ? behind->m_hWnd : nullptr;
        CWindowTable::Get().Reorder(m_Peer->GetParent(), m_hWnd, above);
        m_Peer->StackBelow(above);
    }
    if ((flags & (SWP_NOMOVE | SWP_NOSIZE)) != (SWP_NOMOVE | SWP_NOSIZE))
        Place(CRect(topLeft, size));
    if (flags & SWP_SHOWWINDOW)
        ShowWindow(SW_SHOW);
    if (flags & SWP_HIDEWINDOW)
        ShowWindow(SW_HIDE);
    return true;
}

CRect CWnd::GetWindowRect() const
{
    if (!m_Peer)
        return {};
    CRect place = m_Peer->GetPlace();
    const CWnd* parent = GetParent();
    if (parent && (GetStyle() & WS_CHILD))
        parent->ClientToScreen(place);
    return place;
}

void CWnd::GetWindowRect(CRect& place) const
{
    place = GetWindowRect();
}

CRect CWnd::GetClientRect() const
{
    return m_Peer ? CRect(CPoint(), m_Peer->GetClientSize()) : CRect();
}

void CWnd::GetClientRect(CRect& place) const
{
    place = GetClientRect();
}

void CWnd::ClientToScreen(CPoint& point) const
{
    if (m_Peer)
        point += m_Peer->GetClientOrigin();
}

void CWnd::ClientToScreen(CRect& place) const
{
    if (m_Peer)
        place.OffsetRect(m_Peer->GetClientOrigin());
}

void CWnd::ScreenToClient(CPoint& point) const
{
    if (m_Peer)
        point -= m_Peer->GetClientOrigin();
}

void CWnd::ScreenToClient(CRect& place) const
{
    if (m_Peer)
        place.OffsetRect(-m_Peer->GetClientOrigin());
}

void CWnd::MapWindowPoints(const CWnd* to, CPoint& point) const
{
    ClientToScreen(point);
    if (to)
        to->ScreenToClient(point);
}

void CWnd::MapWindowPoints(const CWnd* to, CRect& place) const
{
    ClientToScreen(place);
    if (to)
        to->ScreenToClient(place);
}

// Painting

void CWnd::Invalidate(bool)
{
    if (m_Peer)
        m_Peer->Invalidate(nullptr);
}

void CWnd::InvalidateRect(const CRect* part, bool)
{
    if (m_Peer)
        m_Peer->Invalidate(part);
}

void CWnd::UpdateWindow()
{
    const CMessageScope scope;
    if (m_Peer)
        m_Peer->Update();
}

void CWnd::RedrawWindow(const CRect* part, UINT flags)
{
    if (flags & RDW_INVALIDATE)
        InvalidateRect(part);
    if (flags & RDW_UPDATENOW)
        UpdateWindow();
}

void CWnd::SetRedraw(bool on)
{
    SendMessage(WM_SETREDRAW, on);
}

} // namespace utility
