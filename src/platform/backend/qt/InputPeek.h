#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

#include <functional>
#include <vector>

class QEvent;

namespace utility
{

/// Finds out whether the user's keys, buttons, wheel or an order to close wait with the window
/// system.
///
/// There is no way to ask without taking. So what comes is put back in its order before a window
/// has seen it; what does not count (paints, the widgets' own timers) is handled.
class CInputPeek final : public QObject
{
public:
    /// `handleEvents` handles what the window system has, while tasks and timers of ours wait.
    explicit CInputPeek(std::function<void()> handleEvents);

    /// Looks at the window system now and then, and else answers what is known.
    bool IsInputWaiting();

    /// Of the application: sees what goes to windows.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct CPutBack
    {
        const QEvent* m_Event;
        QPointer<QObject> m_Window; // events of a window that is gone are gone, too
    };

    void Look();
    bool IsKnown();
    void Forget(const QEvent& event);
    void PutBack(QObject& window, const QEvent& event);

    std::function<void()> m_HandleEvents;
    QElapsedTimer m_SinceLook;
    bool m_IsLooking = false;
    std::vector<CPutBack> m_Waiting;
};

} // namespace utility
