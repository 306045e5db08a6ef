#include "platform/backend/headless/MessageLoop.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"

#include <cerrno>
#include <future>
#include <poll.h>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>

namespace utility
{

namespace
{

constexpr DWORD WAIT_FAILED = 0xFFFFFFFF;

/// A task of another thread, which waits for its end; gone without having run, it answers false.
class CSentTask
{
public:
    explicit CSentTask(IMessageLoop::Task task) : m_Task(std::move(task)) {}
    ~CSentTask() { m_HasRun.set_value(m_Done); }

    std::future<bool> GetResult() { return m_HasRun.get_future(); }
    void Run()
    {
        m_Task();
        m_Done = true;
    }

private:
    IMessageLoop::Task m_Task;
    std::promise<bool> m_HasRun;
    bool m_Done = false;
};

} // namespace

std::unique_ptr<IMessageLoop> MakeHeadlessMessageLoop(EMainThread mainThread)
{
    return std::make_unique<CHeadlessMessageLoop>(mainThread);
}

CHeadlessMessageLoop::CHeadlessMessageLoop(EMainThread mainThread)
    : m_MainThread(mainThread == EMainThread::Calling ? gettid() : getpid()),
      m_WakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (m_WakeUp < 0)
        throw std::system_error(errno, std::generic_category(), "no wake-up for the message loop");
}

CHeadlessMessageLoop::~CHeadlessMessageLoop()
{
    End();
    close(m_WakeUp);
}

bool CHeadlessMessageLoop::IsMainThread() const
{
    return gettid() == m_MainThread;
}

bool CHeadlessMessageLoop::Post(Task task)
{
    {
        const std::lock_guard lock(m_Lock);
        if (m_HasEnded)
            return false;
        m_Queue.push_back(std::move(task));
    }
    WakeUp();
    return true;
}

bool CHeadlessMessageLoop::Send(Task task)
{
    if (IsMainThread())
    {
        task();
        return true;
    }
    auto sent = std::make_shared<CSentTask>(std::move(task));
    std::future<bool> result = sent->GetResult();
    if (!Post([sent] { sent->Run(); }))
        return false;
    sent.reset(); // from here on the queue alone keeps it
    return result.get();
}

bool CHeadlessMessageLoop::IsMessageWaiting()
{
    const std::lock_guard lock(m_Lock);
    return !m_Queue.empty();
}

void CHeadlessMessageLoop::HandleWaiting()
{
    std::size_t count = 0;
    {
        const std::lock_guard lock(m_Lock);
        count = m_Queue.size();
    }
    while (count-- > 0 && RunTask())
    {
    }
    RunDueTimer();
}

DWORD CHeadlessMessageLoop::WaitForHandle(HANDLE)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return WAIT_FAILED;
}

void CHeadlessMessageLoop::SetIdleHandler(IdleHandler handler)
{
    m_Idle = std::move(handler);
    m_WantsIdle = true;
    m_IdleCount = 0;
}

int CHeadlessMessageLoop::Run()
{
    {
        const std::lock_guard lock(m_Lock);
        m_HasEnded = false;
    }
    m_WantsIdle = true;
    m_IdleCount = 0;
    ++m_RunDepth;
    int code = 0;
    while (!TakeQuit(code))
    {
        if (!RunTask() && !RunDueTimer() && !RunIdle())
            Wait();
    }
    if (--m_RunDepth == 0)
        End();
    return code;
}

void CHeadlessMessageLoop::Quit(int code)
{
    {
        const std::lock_guard lock(m_Lock);
        m_IsQuitting = true;
        m_QuitCode = code;
    }
    WakeUp();
}

UINT CHeadlessMessageLoop::SetTimer(DWORD milliseconds, Task task)
{
    const std::chrono::milliseconds interval(milliseconds);
    m_Timers[++m_LastTimer] = {interval, Clock::now() + interval,
                               std::make_shared<Task>(std::move(task))};
    return m_LastTimer;
}

void CHeadlessMessageLoop::KillTimer(UINT id)
{
    m_Timers.erase(id);
}

bool CHeadlessMessageLoop::TakeQuit(int& code)
{
    const std::lock_guard lock(m_Lock);
    if (!m_IsQuitting)
        return false;
    m_IsQuitting = false;
    code = m_QuitCode;
    return true;
}

bool CHeadlessMessageLoop::RunTask()
{
    Task task;
    {
        const std::lock_guard lock(m_Lock);
        if (m_Queue.empty())
            return false;
        task = std::move(m_Queue.front());
        m_Queue.pop_front();
    }
    m_WantsIdle = true;
    m_IdleCount = 0;
    task();
    return true;
}

bool CHeadlessMessageLoop::RunDueTimer()
{
    const auto timer = FindNextTimer();
    const Clock::time_point now = Clock::now();
    if (timer == m_Timers.end() || timer->second.m_Due > now)
        return false;
    timer->second.m_Due = now + timer->second.m_Interval;
    const std::shared_ptr<Task> task = timer->second.m_Task;
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

void CHeadlessMessageLoop::Wait()
{
    int timeout = -1;
    const auto timer = FindNextTimer();
    if (timer != m_Timers.end())
    {
        // Up to the next whole millisecond, so that the timer is due when the wait ends.
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(timer->second.m_Due - Clock::now());
        timeout = static_cast<int>(std::clamp<std::int64_t>(left.count(), 0, INT32_MAX));
    }
    pollfd wakeUp{m_WakeUp, POLLIN, 0};
    if (poll(&wakeUp, 1, timeout) > 0)
    {
        eventfd_t count = 0;
        eventfd_read(m_WakeUp, &count);
    }
}

void CHeadlessMessageLoop::WakeUp()
{
    // Fails only when the count is full, and then a wake-up is under way already.
    eventfd_write(m_WakeUp, 1);
}

void CHeadlessMessageLoop::End()
{
    std::deque<Task> dropped; // ends outside the lock, since what waits for it may post again
    const std::lock_guard lock(m_Lock);
    m_HasEnded = true;
    dropped.swap(m_Queue);
}

std::map<UINT, CHeadlessMessageLoop::CTimer>::iterator CHeadlessMessageLoop::FindNextTimer()
{
    return std::min_element(m_Timers.begin(), m_Timers.end(),
                            [](const auto& left, const auto& right)
                            { return left.second.m_Due < right.second.m_Due; });
}

} // namespace utility
