#include "platform/backend/qt/MessageLoop.h"

#include "platform/backend/qt/Guard.h"
#include "platform/base/LastError.h"
#include "platform/system/process/Handle.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimerEvent>

#include <algorithm>
#include <atomic>
#include <thread>

namespace utility
{

namespace
{

constexpr DWORD SHORTEST_INTERVAL = 1; // milliseconds; none at all would leave no time for the rest
constexpr DWORD LONGEST_INTERVAL = INT32_MAX;

/// The one kind of event that goes through the library's queue.
QEvent::Type TokenType()
{
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

} // namespace

void CallGuarded(const std::function<void()>& call)
{
    try
    {
        call();
    }
    catch (...)
    {
        auto* loop = dynamic_cast<CQtMessageLoop*>(&GetMessageLoop());
        if (!loop)
            throw;
        loop->PassOn(std::current_exception());
    }
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

/// A run or a wait under way. One that is over holds tasks back until it is left.
class CQtMessageLoop::CScope
{
public:
    enum class EKind
    {
        Run,
        Wait,
        Once, // handles what waits
        Look  // handles what the window system has, unseen by idle work
    };

    CScope(CQtMessageLoop& loop, EKind kind) : m_Kind(kind), m_Loop(loop), m_Outer(loop.m_Scope)
    {
        if (kind != EKind::Look)
            m_Loop.StopIdle();
        m_Loop.m_Scope = this;
        if (kind == EKind::Run && m_Loop.m_RunDepth++ == 0)
            m_Loop.m_Queue.Open();
    }
    ~CScope()
    {
        m_Loop.m_Scope = m_Outer;
        if (m_Kind == EKind::Run && --m_Loop.m_RunDepth == 0)
            m_Loop.m_Queue.Close();
        m_Loop.PutTokens(std::exchange(m_Loop.m_HeldTokens, 0) + 1); // one to look after the outer
        if (m_Kind != EKind::Look)
            m_Loop.RestartIdle();
    }
    CScope(const CScope&) = delete;
    CScope& operator=(const CScope&) = delete;

    /// Handles events until the scope is over; passes on what was thrown.
    void Exec()
    {
        if (!m_IsOver && !m_Loop.m_Thrown)
            m_Events.exec();
        RethrowIfAny();
    }
    void RethrowIfAny()
    {
        if (const std::exception_ptr thrown = std::exchange(m_Loop.m_Thrown, nullptr))
            std::rethrow_exception(thrown);
    }
    void End()
    {
        m_IsOver = true;
        m_Events.quit();
    }

    const EKind m_Kind;
    QEventLoop m_Events;
    bool m_IsOver = false;
    const Condition* m_IsDone = nullptr; // of a wait
    std::uint64_t m_Limit = UINT64_MAX;  // only tasks below it run

private:
    CQtMessageLoop& m_Loop;
    CScope* const m_Outer;
};

CQtMessageLoop::CQtMessageLoop()
    : m_Receiver(std::make_unique<CReceiver>(*this)),
      m_Queue(EMainThread::Calling, {[this](const Task& task)
                                     {
                                         task();
                                         RestartIdle();
                                     },
                                     [receiver = m_Receiver.get()]
                                     {
                                         QCoreApplication::postEvent(receiver,
                                                                     new QEvent(TokenType()));
                                     }})
{
}

CQtMessageLoop::~CQtMessageLoop() = default;

bool CQtMessageLoop::IsMainThread() const
{
    return m_Queue.IsOwner();
}

// Handing over work

bool CQtMessageLoop::Post(Task task)
{
    return m_Queue.Put(std::move(task), CTaskQueue::EKind::Posted);
}

bool CQtMessageLoop::Send(Task task)
{
    if (IsMainThread())
    {
        task();
        return true;
    }
    return m_Queue.Send(std::move(task));
}

void CQtMessageLoop::PutTokens(int count)
{
    for (; count > 0; --count)
        QCoreApplication::postEvent(m_Receiver.get(), new QEvent(TokenType()));
}

/// One event for each task; which task it is, the queue says.
void CQtMessageLoop::OnToken()
{
    if (m_Scope && m_Scope->m_IsOver)
    {
        ++m_HeldTokens;
        return;
    }
    if (const Task task = m_Queue.TakeNext(m_Scope ? m_Scope->m_Limit : UINT64_MAX))
        RunTask(task);
    else if (!m_Queue.IsEmpty())
        ++m_HeldTokens; // beyond the limit
    CheckScope();
}

void CQtMessageLoop::RunTask(const Task& task)
{
    StopIdle();
    Guard(task);
    RestartIdle();
}

void CQtMessageLoop::Guard(const Task& task)
{
    try
    {
        task();
    }
    catch (...)
    {
        PassOn(std::current_exception());
    }
}

void CQtMessageLoop::PassOn(std::exception_ptr thrown)
{
    m_Thrown = std::move(thrown);
    if (m_Scope)
        m_Scope->End();
}

/// Ends the innermost run or wait if its time has come.
void CQtMessageLoop::CheckScope()
{
    if (!m_Scope || m_Scope->m_IsOver)
        return;
    const bool isOver = m_Scope->m_Kind == CScope::EKind::Run
                            ? m_Queue.IsQuitting()
                            : m_Scope->m_IsDone && (*m_Scope->m_IsDone)();
    if (isOver)
        m_Scope->End();
}

// Looking and waiting

bool CQtMessageLoop::IsMessageWaiting()
{
    return !m_Queue.IsEmpty() || (m_IsInputWaiting && m_IsInputWaiting());
}

void CQtMessageLoop::HandleWaiting()
{
    CScope scope(*this, CScope::EKind::Once);
    scope.m_Limit = m_Queue.GetNextNumber();
    QCoreApplication::sendPostedEvents(m_Receiver.get(), TokenType());
    scope.m_Events.processEvents();
    scope.RethrowIfAny();
}

void CQtMessageLoop::HandleWindowEvents()
{
    CScope scope(*this, CScope::EKind::Once);
    scope.m_IsOver = true; // holds tasks and timers back
    scope.m_Events.processEvents();
    scope.RethrowIfAny();
}

void CQtMessageLoop::LookAtWindows()
{
    CScope scope(*this, CScope::EKind::Look);
    scope.m_IsOver = true;
    scope.m_Events.processEvents();
    scope.RethrowIfAny();
}

/// A thread waits, so that this one sleeps between the repaints.
DWORD CQtMessageLoop::WaitForHandle(HANDLE handle)
{
    CScope scope(*this, CScope::EKind::Once);
    scope.m_IsOver = true; // nothing of ours is delivered
    QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
    std::atomic<bool> isOver = false;
    DWORD result = 0;
    DWORD code = 0;
    std::thread waiter(
        [&]
        {
            result = WaitForSingleObject(handle, INFINITE);
            code = GetLastError();
            isOver = true;
            dispatcher->wakeUp();
        });
    while (!isOver)
        scope.m_Events.processEvents(QEventLoop::ExcludeUserInputEvents |
                                     QEventLoop::WaitForMoreEvents);
    waiter.join();
    if (result == WAIT_FAILED)
        SetLastError(code);
    return result;
}

bool CQtMessageLoop::RunUntil(const Condition& isDone, DWORD milliseconds)
{
    if (isDone())
        return true;
    if (milliseconds == 0)
        return false;
    CScope scope(*this, CScope::EKind::Wait);
    scope.m_IsDone = &isDone;
    UINT timer = 0;
    bool isLate = false;
    if (milliseconds != INFINITE)
    {
        const auto giveUp = [&]
        {
            isLate = true;
            scope.End();
        };
        timer = SetTimer(milliseconds, giveUp);
    }
    try
    {
        scope.Exec();
    }
    catch (...)
    {
        KillTimer(timer);
        throw;
    }
    KillTimer(timer);
    return !isLate || isDone();
}

void CQtMessageLoop::WakeUp()
{
    m_Queue.WakeUp();
}

// Running

int CQtMessageLoop::Run()
{
    CScope scope(*this, CScope::EKind::Run);
    RestartIdle();
    int code = 0;
    while (!m_Queue.TakeQuit(code))
    {
        scope.m_IsOver = false;
        scope.Exec();
    }
    return code;
}

void CQtMessageLoop::Quit(int code)
{
    m_Queue.Quit(code);
}

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
