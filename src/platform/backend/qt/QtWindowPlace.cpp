#include "platform/backend/qt/QtWindowPeer.h"
#include "platform/backend/qt/Values.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowRecords.h"

/// Where a widget's window stands.
namespace utility
{

/// What the window system puts around a top-level window; nothing before it is shown.
QMargins CQtWindowPeer::GetFrame() const
{
    if (IsChild())
        return {};
    const QRect outer = m_Widget->frameGeometry();
    const QRect inner = m_Widget->geometry();
    return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
}

/// The user resizes a window with a sizing border within the window's own limits, any other not at
/// all.
void CQtWindowPeer::LimitSize()
{
    if (!(m_Request.m_Style & WS_THICKFRAME))
    {
        if (m_Request.m_Style & WS_CAPTION)
            m_Widget->setFixedSize(m_Widget->size());
        return;
    }
    MINMAXINFO limits;
    limits.ptMaxTrackSize = CPoint(INT16_MAX, INT16_MAX);
    Send(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    const QMargins frame = GetFrame();
    const QSize around(frame.left() + frame.right(), frame.top() + frame.bottom());
    m_Widget->setMinimumSize(
        (QSize(limits.ptMinTrackSize.x, limits.ptMinTrackSize.y) - around).expandedTo(QSize(0, 0)));
}

void CQtWindowPeer::Move(const CRect& place)
{
    const QRect inner = ToQRect(place).marginsRemoved(GetFrame());
    if (!IsChild())
    {
        // A size of ours overrides the limits for the user's.
        m_Widget->setMinimumSize(0, 0);
        m_Widget->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    }
    m_Widget->setGeometry(inner);
    if (!IsChild() && IsVisible())
        LimitSize();
    TellMove();
    TellSize();
}

CRect CQtWindowPeer::GetPlace() const
{
    return ToRect(IsChild() ? m_Widget->geometry() : m_Widget->frameGeometry());
}

CRect CQtWindowPeer::GetNormalPlace() const
{
    if (GetState() == EWindowState::Normal)
        return GetPlace();
    return ToRect(m_Widget->normalGeometry().marginsAdded(m_NormalFrame));
}

CSize CQtWindowPeer::GetClientSize() const
{
    return {m_Widget->width(), m_Widget->height()};
}

CPoint CQtWindowPeer::GetClientOrigin() const
{
    return ToPoint(m_Widget->mapToGlobal(QPoint(0, 0)));
}

void CQtWindowPeer::StackBelow(HWND sibling)
{
    const CQtWindowPeer* above = PeerOf(sibling);
    if (above)
        m_Widget->stackUnder(&above->Widget());
    else
        m_Widget->raise();
}

} // namespace utility
