#pragma once

#include "platform/base/Types.h"

#include <QObject>

class QContextMenuEvent;
class QKeyEvent;
class QMouseEvent;
class QShortcutEvent;
class QWheelEvent;
class QWidget;

namespace utility
{

class CQtWindowPeer;

/// Turns events of a widget into messages of its window.
///
/// Keys and the pointer reach the widget itself only when the message arrives at the window's
/// default: a handler that answers keeps the event from the widget, and one that calls the default
/// finds the widget changed behind the call.
class CEventBridge final : public QObject
{
public:
    explicit CEventBridge(CQtWindowPeer& peer) : m_Peer(peer) {}

    /// Also sees the events of this one: the widget itself, or a part that gets its input.
    void Watch(QWidget& widget);

    /// Gives the present event to its widget, if this is its message; false if not.
    bool PassOn(UINT message);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool OnInput(QObject& watched, QEvent& event);
    bool OnKey(QObject& watched, QKeyEvent& event);
    bool OnShortcut(const QShortcutEvent& event) const;
    bool OnPointer(QObject& watched, QMouseEvent& event);
    bool OnWheel(QObject& watched, QWheelEvent& event);
    bool OnContextMenu(QObject& watched, QContextMenuEvent& event);
    void OnState(QEvent& event);
    bool Carry(QObject& watched, QEvent& event, UINT message, WPARAM wParam, LPARAM lParam,
               bool holdBack = false);
    static bool Finish(QEvent& event);

    /// An event whose message is on its way.
    struct CCarried
    {
        QObject* m_Watched;
        QEvent* m_Event;
        UINT m_Message;
        bool m_HoldBack;
        bool m_HasArrived = false;
    };

    CQtWindowPeer& m_Peer;
    CCarried* m_Carried = nullptr;
    const QEvent* m_PassedOn = nullptr; // goes through untouched
};

} // namespace utility
