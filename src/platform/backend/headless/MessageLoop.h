#pragma once

#include "platform/system/window/MessageLoop.h"

#include <chrono>
#include <deque>
#include <map>
#include <mutex>

namespace utility
{

/// A main loop without a window system: a queue that any thread may fill, a wake-up, timers and
/// idle calls.
class CHeadlessMessageLoop final : public IMessageLoop
{
public:
    /// Throws std::system_error if the system has no wake-up to give.
    explicit CHeadlessMessageLoop(EMainThread mainThread);
    ~CHeadlessMessageLoop() override;

    bool IsMainThread() const override;
    bool Post(Task task) override;
    bool Send(Task task) override;

    bool IsMessageWaiting() override;
    void HandleWaiting() override;
    DWORD WaitForHandle(HANDLE handle) override;

    void SetIdleHandler(IdleHandler handler) override;
    int Run() override;
    void Quit(int code) override;

    UINT SetTimer(DWORD milliseconds, Task task) override;
    void KillTimer(UINT id) override;

private:
    using Clock = std::chrono::steady_clock;

    struct CTimer
    {
        std::chrono::milliseconds m_Interval;
        Clock::time_point m_Due;
        std::shared_ptr<Task> m_Task; // shared: a task may end its own timer while it runs
    };

    bool TakeQuit(int& code);
    bool RunTask();
    bool RunDueTimer();
    bool RunIdle();
    void Wait();
    void WakeUp();
    void End();
    std::map<UINT, CTimer>::iterator FindNextTimer();

    const long m_MainThread; // the system's number of it
    int m_WakeUp;            // an event descriptor

    std::mutex m_Lock; // guards what other threads reach: queue, quit order, end
    std::deque<Task> m_Queue;
    bool m_IsQuitting = false;
    bool m_HasEnded = false;
    int m_QuitCode = 0;

    // Of the main thread alone
    int m_RunDepth = 0;
    IdleHandler m_Idle;
    bool m_WantsIdle = true;
    LONG m_IdleCount = 0;
    std::map<UINT, CTimer> m_Timers;
    UINT m_LastTimer = 0;
};

} // namespace utility
