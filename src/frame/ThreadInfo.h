#pragma once

#include "platform/base/Export.h"
#include "platform/base/object/Object.h"
#include "platform/system/process/CriticalSection.h"

#include <atomic>
#include <condition_variable>
#include <mutex>

namespace utility
{

/// What one worker thread and the main thread share: a worker derives from it what it needs.
///
/// Any thread may call any operation. The object lives longer than its worker.
///
///     // worker                                // main thread
///     queue the request                        do what was requested
///     info.WaitForMainThread(&done);           info.MainThreadTaskFinished(&done);
class UTILITY_CORE_API CThreadInfo : public CObject
{
    DECLARE_DYNAMIC(CThreadInfo)

public:
    CThreadInfo() = default;

    // What a worker overrides
    /// The worker's own mark that it has finished; wakes a `WaitForWorker`.
    virtual void StopRunning();
    virtual void SetChanged() {}
    virtual void PerformTask() {}

    /// Meant by the derived class.
    int GetState() const { return m_State; }
    void SetState(int state) { m_State = state; }

    /// Until `StopRunning`.
    bool IsRunning() const { return m_IsRunning; }

    /// Asks the worker to end; it looks by `ToldToQuit` when it likes, if it does.
    void Quit() { m_ToldToQuit = true; }
    bool ToldToQuit() const { return m_ToldToQuit; }

    /// Kept for the host; not owned.
    void* ThreadHandle() const { return m_ThreadHandle; }
    void ThreadHandle(void* handle) { m_ThreadHandle = handle; }

    // Units of work for the main thread's progress display
    int GetPendingSteps();
    void IncrementPendingSteps();
    void ResetPendingSteps();

    // Handing over
    /// Waits until the main thread has told that the task is finished; one telling lets one wait
    /// through, also if it came first.
    void WaitForMainThread(std::condition_variable* finished);
    /// Lets this worker go on. Workers share `finished` only where each is told for itself.
    void MainThreadTaskFinished(std::condition_variable* finished);

private:
    std::atomic<void*> m_ThreadHandle = nullptr;
    CCriticalSection m_StepSection;
    std::mutex m_HandOffLock;
    bool m_IsHandedOff = false;
    int m_PendingSteps = 0;
    std::atomic<bool> m_ToldToQuit = false;
    std::atomic<bool> m_IsRunning = true;
    std::atomic<int> m_State = 0;
};

} // namespace utility
