#pragma once

#include "platform/backend/loop/TaskQueue.h"
#include "platform/system/window/MessageLoop.h"

#include <chrono>
#include <map>

namespace utility
{

/// A main loop without a window system: a queue that any thread may fill, a wake-up, timers and
/// idle calls.
class CHeadlessMessageLoop final : public IMessageLoop
{
public:
    /// Throws std::system_error if the system has no wake-up to give.
    explicit CHeadlessMessageLoop(EMainThread mainThread);

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

private:
    using Clock = std::chrono::steady_clock;
    using Deadline = CTaskQueue::Deadline;

    struct CTimer
    {
        std::chrono::milliseconds m_Interval;
        Clock::time_point m_Due;
        std::shared_ptr<Task> m_Task; // shared: a task may end its own timer while it runs
    };
    class CRunScope;

    void RunTask(const Task& task);
    bool RunNextTask();
    bool RunDueTimer();
    bool RunIdle();
    std::map<UINT, CTimer>::iterator FindNextTimer();
    void Sleep(const Deadline& end);

    CTaskQueue m_Queue; // all that other threads reach

    // Of the main thread alone
    int m_RunDepth = 0;
    IdleHandler m_Idle;
    bool m_WantsIdle = true;
    LONG m_IdleCount = 0;
    std::map<UINT, CTimer> m_Timers;
    UINT m_LastTimer = 0;
};

} // namespace utility
