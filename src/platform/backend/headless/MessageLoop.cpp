#include "platform/backend/headless/MessageLoop.h"

#include "platform/system/process/Handle.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr DWORD SHORTEST_INTERVAL =
    1; // milliseconds; none at all would leave no time for idle work

} // namespace

std::unique_ptr<IMessageLoop> MakeHeadlessMessageLoop(EMainThread mainThread)
{
    return std::make_unique<CHeadlessMessageLoop>(mainThread);
}

/// Counts a run; the end of the outermost one, also by an exception, closes the queue.
class CHeadlessMessageLoop::CRunScope
{
public:
    explicit CRunScope(CHeadlessMessageLoop& loop) : m_Loop(loop)
    {
        m_Loop.m_Queue.Open();
        m_Loop.m_WantsIdle = true;
        m_Loop.m_IdleCount = 0;
        ++m_Loop.m_RunDepth;
    }
    ~CRunScope()
    {
        if (--m_Loop.m_RunDepth == 0)
            m_Loop.m_Queue.Close();
    }
    CRunScope(const CRunScope&) = delete;
    CRunScope& operator=(const CRunScope&) = delete;

private:
    CHeadlessMessageLoop& m_Loop;
};

CHeadlessMessageLoop::CHeadlessMessageLoop(EMainThread mainThread)
    : m_Queue(mainThread, {[this](const Task& task)
                           {
                               RunTask(task);
                           }})
{
}

bool CHeadlessMessageLoop::IsMainThread() const
{
    return m_Queue.IsOwner();
}

bool CHeadlessMessageLoop::Post(Task task)
{
    return m_Queue.Put(std::move(task), CTaskQueue::EKind::Posted);
}

bool CHeadlessMessageLoop::Send(Task task)
{
    if (IsMainThread())
    {
        task();
        return true;
    }
    return m_Queue.Send(std::move(task));
}

bool CHeadlessMessageLoop::IsMessageWaiting()
{
    return !m_Queue.IsEmpty();
}

void CHeadlessMessageLoop::HandleWaiting()
{
    const std::uint64_t limit = m_Queue.GetNextNumber();
    while (const Task task = m_Queue.TakeNext(limit))
        RunTask(task);
    RunDueTimer();
}

DWORD CHeadlessMessageLoop::WaitForHandle(HANDLE handle)
{
    return WaitForSingleObject(handle, INFINITE);
}

bool CHeadlessMessageLoop::RunUntil(const Condition& isDone, DWORD milliseconds)
{
    Deadline end;
    if (milliseconds != INFINITE)
        end = Clock::now() + std::chrono::milliseconds(milliseconds);
    while (!isDone())
    {
        if (end && Clock::now() >= *end)
            return false;
        if (!RunNextTask() && !RunDueTimer())
            Sleep(end);
    }
    return true;
}

void CHeadlessMessageLoop::WakeUp()
{
    m_Queue.WakeUp();
}

void CHeadlessMessageLoop::SetIdleHandler(IdleHandler handler)
{
    m_Idle = std::move(handler);
    m_WantsIdle = true;
    m_IdleCount = 0;
}

int CHeadlessMessageLoop::Run()
{
    const CRunScope scope(*this);
    int code = 0;
    while (!m_Queue.TakeQuit(code))
    {
        if (!RunNextTask() && !RunDueTimer() && !RunIdle())
            Sleep({});
    }
    return code;
}

void CHeadlessMessageLoop::Quit(int code)
{
    m_Queue.Quit(code);
}

UINT CHeadlessMessageLoop::SetTimer(DWORD milliseconds, Task task)
{
    const std::chrono::milliseconds interval(std::max(milliseconds, SHORTEST_INTERVAL));
    m_Timers[++m_LastTimer] = {interval, Clock::now() + interval,
                               std::make_shared<Task>(std::move(task))};
    return m_LastTimer;
}

void CHeadlessMessageLoop::KillTimer(UINT id)
{
    m_Timers.erase(id);
}

void CHeadlessMessageLoop::RunTask(const Task& task)
{
    m_WantsIdle = true;
    m_IdleCount = 0;
    task();
}

bool CHeadlessMessageLoop::RunNextTask()
{
    const Task task = m_Queue.TakeNext();
    if (!task)
        return false;
    RunTask(task);
    return true;
}

bool CHeadlessMessageLoop::RunDueTimer()
{
    const auto next = FindNextTimer();
    const Clock::time_point now = Clock::now();
    if (next == m_Timers.end() || next->second.m_Due > now)
        return false;
    next->second.m_Due = now + next->second.m_Interval;
    const std::shared_ptr<Task> task = next->second.m_Task;
    (*task)();
    return true;
}

bool CHeadlessMessageLoop::RunIdle()
{
    if (!m_Idle || !m_WantsIdle)
        return false;
    m_WantsIdle = m_Idle(m_IdleCount++);
    return true;
}

std::map<UINT, CHeadlessMessageLoop::CTimer>::iterator CHeadlessMessageLoop::FindNextTimer()
{
    return std::min_element(m_Timers.begin(), m_Timers.end(),
                            [](const auto& left, const auto& right)
                            { return left.second.m_Due < right.second.m_Due; });
}

/// Until the next timer is due, at the latest until `end`.
void CHeadlessMessageLoop::Sleep(const Deadline& end)
{
    const auto next = FindNextTimer();
    const bool isTimerFirst = next != m_Timers.end() && (!end || next->second.m_Due < *end);
    m_Queue.Sleep(isTimerFirst ? next->second.m_Due : end);
}

} // namespace utility
