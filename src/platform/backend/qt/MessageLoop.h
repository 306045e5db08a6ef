#pragma once

#include "platform/backend/loop/TaskQueue.h"
#include "platform/system/window/MessageLoop.h"

#include <QEventLoop>
#include <QObject>

#include <exception>
#include <map>

namespace utility
{

/// A main loop that is the widget library's own, so that its menus and boxes go on handling tasks.
///
/// Tasks wait in our queue, and one event goes through the library's for each, so they keep their
/// order among themselves and take turns with the window system's events. Idle calls come from a
/// timer without delay, which stands still while a task runs. There may be one on each thread; the
/// one of windows is made on the thread of the application.
class CQtMessageLoop final : public IMessageLoop
{
public:
    CQtMessageLoop();
    ~CQtMessageLoop() override;

    bool IsMainThread() const override;
    bool Post(Task task) override;
    bool Send(Task task) override;

    bool IsMessageWaiting() override;
    void HandleWaiting() override;
    DWORD WaitForHandle(HANDLE handle) override;
    bool RunUntil(const Condition& isDone, DWORD milliseconds) override;
    void WakeUp() override;

    void SetIdleHandler(IdleHandler handler) override;
    int Run() override;
    void Quit(int code) override;

    UINT SetTimer(DWORD milliseconds, Task task) override;
    void KillTimer(UINT id) override;

    /// Paints, and lets modal windows take input; tasks and timers wait.
    void HandleWindowEvents();
    /// How to find out whether input waits with the window system, which nobody knows by itself.
    void SetInputPeek(Condition isInputWaiting) { m_IsInputWaiting = std::move(isInputWaiting); }
    /// Paints and handles input, while tasks, timers and idle work are as if nothing had been.
    void LookAtWindows();
    /// The innermost run or wait ends and passes this on.
    void PassOn(std::exception_ptr thrown);
    /// Input has come, which counts for idle work as a task does.
    void RestartIdle();

private:
    class CReceiver;
    class CScope;

    void OnToken();
    void OnTimer(int id);
    void OnIdle();
    void RunTask(const Task& task);
    void Guard(const Task& task);
    void CheckScope();
    void StartIdle();
    void StopIdle();
    void PutTokens(int count);

    QEventLoop m_Dispatching; // makes sure that this thread can handle events at all
    std::unique_ptr<CReceiver> m_Receiver;
    CTaskQueue m_Queue; // all that other threads reach

    CScope* m_Scope = nullptr; // the innermost run or wait
    std::exception_ptr m_Thrown;
    int m_RunDepth = 0;
    int m_HeldTokens = 0; // came while tasks were held back

    std::map<UINT, std::shared_ptr<Task>> m_Timers; // shared: a task may end its own timer
    Condition m_IsInputWaiting;
    IdleHandler m_Idle;
    LONG m_IdleCount = 0;
    int m_IdleTimer = 0; // 0: stands still
};

} // namespace utility
