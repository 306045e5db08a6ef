#include "platform/backend/qt/InputPeek.h"

#include <QCoreApplication>
#include <QEvent>

namespace utility
{

namespace
{

constexpr int LOOK_INTERVAL = 10; // milliseconds: a look costs as much as an empty turn of the loop

bool IsInput(QEvent::Type type)
{
    switch (type)
    {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

CInputPeek::CInputPeek(std::function<void()> handleEvents) : m_HandleEvents(std::move(handleEvents))
{
}

bool CInputPeek::IsInputWaiting()
{
    if (IsKnown() || m_IsLooking)
        return IsKnown();
    if (m_SinceLook.isValid() && !m_SinceLook.hasExpired(LOOK_INTERVAL))
        return false;
    Look();
    m_SinceLook.start();
    return IsKnown();
}

void CInputPeek::Look()
{
    m_IsLooking = true;
    try
    {
        m_HandleEvents();
    }
    catch (...)
    {
        m_IsLooking = false; // else no window would get input ever again
        throw;
    }
    m_IsLooking = false;
}

bool CInputPeek::IsKnown()
{
    std::erase_if(m_Waiting, [](const CPutBack& entry) { return entry.m_Window.isNull(); });
    return !m_Waiting.empty();
}

bool CInputPeek::eventFilter(QObject* watched, QEvent* event)
{
    if (m_IsLooking && event->type() == QEvent::ShortcutOverride)
    {
        event->accept(); // no shortcut is taken before its key is
        return true;
    }
    if (!watched->isWindowType() || !IsInput(event->type()))
        return false;
    Forget(*event);
    if (!m_IsLooking)
        return false;
    PutBack(*watched, *event);
    if (event->type() == QEvent::Close)
        event->ignore(); // not yet
    return true;
}

/// One that was put back arrives, or comes round once more.
void CInputPeek::Forget(const QEvent& event)
{
    std::erase_if(m_Waiting, [&](const CPutBack& entry) { return entry.m_Event == &event; });
}

void CInputPeek::PutBack(QObject& window, const QEvent& event)
{
    QEvent* const copy = event.clone();
    m_Waiting.push_back({copy, &window});
    QCoreApplication::postEvent(&window, copy);
}

} // namespace utility
