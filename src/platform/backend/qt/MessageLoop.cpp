#include "platform/backend/qt/MessageLoop.h"

#include "platform/backend/qt/Guard.h"
#include "platform/backend/qt/LoopReceiver.h"
#include "platform/backend/qt/LoopScope.h"
#include "platform/base/LastError.h"
#include "platform/system/process/Handle.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

#include <atomic>
#include <thread>

namespace utility
{

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

} // namespace utility
