#pragma once

#include "platform/backend/qt/MessageLoop.h"

#include <QEvent>
#include <QTimerEvent>

namespace utility
{

/// The one kind of event that goes through the library's queue.
inline QEvent::Type TokenType()
{
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

/// Where the loop's events and timers arrive.
class CQtMessageLoop::CReceiver final : public QObject
{
public:
    explicit CReceiver(CQtMessageLoop& loop) : m_Loop(loop) {}

    bool event(QEvent* event) override
    {
        if (event->type() == TokenType())
            m_Loop.OnToken();
        else if (event->type() == QEvent::Timer)
            m_Loop.OnTimer(static_cast<QTimerEvent*>(event)->timerId());
        else
            return QObject::event(event);
        return true;
    }

private:
    CQtMessageLoop& m_Loop;
};

} // namespace utility
