#include "platform/backend/headless/MessageLoop.h"

#include "platform/backend/headless/SentTask.h"
#include "platform/system/process/Handle.h"
#include "platform/system/process/WinThread.h"

#include <algorithm>
#include <exception>
#include <unistd.h>
#include <vector>

namespace utility
{

namespace
{

constexpr DWORD SHORTEST_INTERVAL =
    1; // milliseconds; none at all would leave no time for idle work

bool IsFirstThread()
{
    static thread_local const bool isFirst = gettid() == getpid();
    return isFirst;
}

/// The loops made by the present thread for itself, the newest behind.
std::vector<CHeadlessMessageLoop*>& LoopsOfThread()
{
    static thread_local std::vector<CHeadlessMessageLoop*> loops;
    return loops;
}

/// The loop in which the first thread waits when it has made none for itself.
constinit std::atomic<CHeadlessMessageLoop*> loopOfFirstThread = nullptr;

CHeadlessMessageLoop* FindOwnLoop()
{
    const std::vector<CHeadlessMessageLoop*>& loops = LoopsOfThread();
    if (!loops.empty())
        return loops.back();
    return IsFirstThread() ? loopOfFirstThread.load() : nullptr;
}

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
    : m_MainThreadKind(mainThread),
      m_MainThread(GetCurrentThreadId())
{
    if (mainThread == EMainThread::Calling)
        LoopsOfThread().push_back(this);
    else
        loopOfFirstThread = this;
}

CHeadlessMessageLoop::~CHeadlessMessageLoop()
{
    std::erase(LoopsOfThread(), this);
    CHeadlessMessageLoop* self = this;
    loopOfFirstThread.compare_exchange_strong(self, nullptr);
}

bool CHeadlessMessageLoop::IsMainThread() const
{
    return m_MainThreadKind == EMainThread::Calling ? GetCurrentThreadId() == m_MainThread
                                                    : IsFirstThread();
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
    CHeadlessMessageLoop* ownLoop = FindOwnLoop();
    const auto reply = std::make_shared<CSendReply>(ownLoop);
    auto sent = std::make_shared<CSentTask>(std::move(task), reply);
    if (!m_Queue.Put([sent] { sent->Run(); }, CTaskQueue::EKind::Sent))
        return false;

    sent.reset(); // from here on the queue alone keeps it
    if (ownLoop)
        ownLoop->AwaitReply(*reply);
    return reply->Wait();
}

/// Runs what other threads send here meanwhile: one of them may be what the reply waits for.
void CHeadlessMessageLoop::AwaitReply(CSendReply& reply)
{
    std::exception_ptr thrown;
    while (!reply.IsGiven())
    {
        const Task task = m_Queue.TakeSent();
        if (!task)
        {
            m_Queue.Sleep({}, true);
            continue;
        }
        try
        {
            RunTask(task);
        }
        catch (...)
        {
            // Passes on once the reply is there: until then the sender's own task may still run on
            // its stack.
            thrown = std::current_exception();
        }
    }
    if (thrown)
        std::rethrow_exception(thrown);
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
