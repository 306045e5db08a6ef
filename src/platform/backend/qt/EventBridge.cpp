#include "platform/backend/qt/EventBridge.h"

#include "platform/backend/qt/HeldKeys.h"
#include "platform/backend/qt/KeyCodes.h"
#include "platform/backend/qt/QtWindowPeer.h"
#include "platform/system/window/MessageScope.h"
#include "platform/system/window/VirtualKeys.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/Wnd.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcutEvent>
#include <QWheelEvent>

namespace utility
{

namespace
{

struct CButtonRow
{
    Qt::MouseButton m_Button;
    UINT m_Press;
    UINT m_Release;
    UINT m_DoubleClick;
};

constexpr CButtonRow BUTTONS[] = {{Qt::LeftButton, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK},
                                  {Qt::RightButton, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK},
                                  {Qt::MiddleButton, WM_MBUTTONDOWN, WM_MBUTTONUP, WM_MBUTTONDOWN}};

/// 0 for a button that our vocabulary does not know.
UINT MessageOf(const QMouseEvent& event)
{
    if (event.type() == QEvent::MouseMove)
        return WM_MOUSEMOVE;
    for (const CButtonRow& row : BUTTONS)
    {
        if (row.m_Button != event.button())
            continue;
        if (event.type() == QEvent::MouseButtonPress)
            return row.m_Press;
        return event.type() == QEvent::MouseButtonRelease ? row.m_Release : row.m_DoubleClick;
    }
    return 0;
}

LPARAM PlaceOf(const QPointF& point)
{
    const QPoint whole = point.toPoint();
    return MAKELPARAM(whole.x(), whole.y());
}

} // namespace

void CEventBridge::Watch(QWidget& widget)
{
    widget.installEventFilter(this);
}

bool CEventBridge::eventFilter(QObject* watched, QEvent* event)
{
    if (event == m_PassedOn || !m_Peer.IsOpen())
        return false;
    const CMessageScope scope;
    switch (event->type())
    {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
        return OnInput(*watched, *event);
    case QEvent::Shortcut:
        return OnShortcut(static_cast<QShortcutEvent&>(*event));
    case QEvent::Close:
        if (watched == &m_Peer.Widget() && !m_Peer.IsChild())
        {
            event->ignore(); // the window ends itself, or stays
            m_Peer.Send(WM_SYSCOMMAND, SC_CLOSE);
            return true;
        }
        return false;
    default:
        if (watched == &m_Peer.Widget())
            OnState(*event);
        return false;
    }
}

bool CEventBridge::OnInput(QObject& watched, QEvent& event)
{
    const CHeldKeys held(static_cast<QInputEvent&>(event).modifiers());
    switch (event.type())
    {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return OnKey(watched, static_cast<QKeyEvent&>(event));
    case QEvent::Wheel:
        return OnWheel(watched, static_cast<QWheelEvent&>(event));
    case QEvent::ContextMenu:
        return OnContextMenu(watched, static_cast<QContextMenuEvent&>(event));
    default:
        return OnPointer(watched, static_cast<QMouseEvent&>(event));
    }
}

/// What changes about a window; the widget sees it in any case.
void CEventBridge::OnState(QEvent& event)
{
    switch (event.type())
    {
    case QEvent::Resize:
    case QEvent::WindowStateChange:
        m_Peer.TellSize();
        break;
    case QEvent::Move:
        m_Peer.TellMove();
        break;
    case QEvent::FocusIn:
        m_Peer.Send(WM_SETFOCUS);
        break;
    case QEvent::FocusOut:
        m_Peer.Send(WM_KILLFOCUS);
        break;
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        if (!m_Peer.IsChild())
            m_Peer.Send(WM_ACTIVATE,
                        event.type() == QEvent::WindowActivate ? WA_ACTIVE : WA_INACTIVE);
        break;
    case QEvent::Leave:
        m_Peer.Send(WM_MOUSELEAVE);
        break;
    case QEvent::PaletteChange:
        m_Peer.Send(WM_SYSCOLORCHANGE);
        break;
    default:
        break;
    }
}

bool CEventBridge::OnKey(QObject& watched, QKeyEvent& event)
{
    const bool isPress = event.type() == QEvent::KeyPress;
    const bool isSystemKey = event.modifiers() & Qt::AltModifier;
    const UINT key = VirtualKeyOf(event.key());
    const UINT message = isPress ? (isSystemKey ? WM_SYSKEYDOWN : WM_KEYDOWN)
                                 : (isSystemKey ? WM_SYSKEYUP : WM_KEYUP);
    if (isPress && CWnd::WalkPreTranslateTree(m_Peer.GetHandle(), message, key, 0))
        return Finish(event);
    const QString text = event.text();
    if (!isPress || text.isEmpty())
    {
        Carry(watched, event, message, key, 0);
        return Finish(event);
    }
    // The character follows a key that nobody has kept; what the widget does with both comes then.
    const bool isKept = !Carry(watched, event, message, key, 0, true);
    const UINT character = isSystemKey ? WM_SYSCHAR : WM_CHAR;
    const WPARAM unit = text.at(0).unicode();
    if (!isKept && !CWnd::WalkPreTranslateTree(m_Peer.GetHandle(), character, unit, 0))
        Carry(watched, event, character, unit, 0);
    return Finish(event);
}

/// The widget library found the letter behind an & by itself: dialogs have their own rule for it.
bool CEventBridge::OnShortcut(const QShortcutEvent& event) const
{
    constexpr int KEY_MASK = ~static_cast<int>(Qt::KeyboardModifierMask);
    if (event.key().isEmpty())
        return false;
    const int key = event.key()[0].toCombined() & KEY_MASK;
    return CWnd::WalkPreTranslateTree(m_Peer.GetHandle(), WM_SYSCHAR, static_cast<WPARAM>(key), 0);
}

/// The event has been dealt with, by a handler or, through the default, by the widget.
bool CEventBridge::Finish(QEvent& event)
{
    event.accept();
    return true;
}

bool CEventBridge::OnPointer(QObject& watched, QMouseEvent& event)
{
    const UINT message = MessageOf(event);
    if (message == 0)
        return false;
    Carry(watched, event, message, PointerKeysOf(event.buttons(), event.modifiers()),
          PlaceOf(event.position()));
    return Finish(event);
}

bool CEventBridge::OnWheel(QObject& watched, QWheelEvent& event)
{
    const WPARAM keys = PointerKeysOf(event.buttons(), event.modifiers());
    Carry(watched, event, WM_MOUSEWHEEL, MAKEWPARAM(static_cast<int>(keys), event.angleDelta().y()),
          PlaceOf(event.globalPosition()));
    return Finish(event);
}

bool CEventBridge::OnContextMenu(QObject& watched, QContextMenuEvent& event)
{
    Carry(watched, event, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(m_Peer.GetHandle()),
          PlaceOf(event.globalPos()));
    return Finish(event);
}

/// True if the message arrived at the window's default, where the event goes on unless it is held
/// back.
bool CEventBridge::Carry(QObject& watched, QEvent& event, UINT message, WPARAM wParam,
                         LPARAM lParam, bool holdBack)
{
    CCarried carried{&watched, &event, message, holdBack};
    CCarried* const outer = std::exchange(m_Carried, &carried);
    m_Peer.Send(message, wParam, lParam);
    m_Carried = outer;
    return carried.m_HasArrived;
}

bool CEventBridge::PassOn(UINT message)
{
    if (!m_Carried || m_Carried->m_HasArrived || message != m_Carried->m_Message)
        return false;
    m_Carried->m_HasArrived = true;
    if (m_Carried->m_HoldBack)
        return true;
    QEvent* const event = m_Carried->m_Event;
    const QEvent* const outer = std::exchange(m_PassedOn, event);
    QCoreApplication::sendEvent(m_Carried->m_Watched, event);
    m_PassedOn = outer;
    return true;
}

} // namespace utility
