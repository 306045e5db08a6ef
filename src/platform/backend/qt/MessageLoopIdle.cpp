#include "platform/backend/qt/LoopReceiver.h"
#include "platform/backend/qt/LoopScope.h"
#include "platform/backend/qt/MessageLoop.h"

#include <algorithm>

/// Idle calls and timers.
namespace utility
{

namespace
{

constexpr DWORD SHORTEST_INTERVAL = 1; // milliseconds; none at all would leave no time for the rest
constexpr DWORD LONGEST_INTERVAL = INT32_MAX;

} // namespace

// Idle work

void CQtMessageLoop::SetIdleHandler(IdleHandler handler)
{
    m_Idle = std::move(handler);
    RestartIdle();
}

void CQtMessageLoop::RestartIdle()
{
    m_IdleCount = 0;
    StartIdle();
}

void CQtMessageLoop::StartIdle()
{
    if (m_Idle && m_IdleTimer == 0 && m_Scope && m_Scope->m_Kind == CScope::EKind::Run)
        m_IdleTimer = m_Receiver->startTimer(0);
}

void CQtMessageLoop::StopIdle()
{
    if (const int timer = std::exchange(m_IdleTimer, 0))
        m_Receiver->killTimer(timer);
}

void CQtMessageLoop::OnIdle()
{
    if (!m_Queue.IsEmpty() || m_Scope->m_IsOver)
        return; // its event is on the way
    StopIdle();
    const LONG count = m_IdleCount++;
    bool wantsMore = false;
    Guard([&] { wantsMore = m_Idle(count); });
    if (wantsMore)
        StartIdle();
    else
        StopIdle(); // what ran meanwhile may have started it
    CheckScope();
}

// Timers

UINT CQtMessageLoop::SetTimer(DWORD milliseconds, Task task)
{
    const int interval =
        static_cast<int>(std::clamp(milliseconds, SHORTEST_INTERVAL, LONGEST_INTERVAL));
    const auto id = static_cast<UINT>(m_Receiver->startTimer(interval, Qt::PreciseTimer));
    m_Timers[id] = std::make_shared<Task>(std::move(task));
    return id;
}

void CQtMessageLoop::KillTimer(UINT id)
{
    if (m_Timers.erase(id) > 0)
        m_Receiver->killTimer(static_cast<int>(id));
}

void CQtMessageLoop::OnTimer(int id)
{
    if (id == m_IdleTimer)
    {
        OnIdle();
        return;
    }
    const auto found = m_Timers.find(static_cast<UINT>(id));
    if (found == m_Timers.end() || (m_Scope && m_Scope->m_IsOver))
        return;
    const std::shared_ptr<Task> task = found->second;
    Guard(*task);
    CheckScope();
}

} // namespace utility
