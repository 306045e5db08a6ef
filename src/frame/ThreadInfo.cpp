#include "frame/ThreadInfo.h"

#include "platform/system/window/MessageLoop.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CThreadInfo, CObject)

void CThreadInfo::StopRunning()
{
    m_IsRunning = false;
    // From here on the object may be gone: the loop alone is told.
    GetMessageLoop().WakeUp();
}

int CThreadInfo::GetPendingSteps()
{
    const CSingleLock lock(m_StepSection, true);
    return m_PendingSteps;
}

void CThreadInfo::IncrementPendingSteps()
{
    const CSingleLock lock(m_StepSection, true);
    ++m_PendingSteps;
}

void CThreadInfo::ResetPendingSteps()
{
    const CSingleLock lock(m_StepSection, true);
    m_PendingSteps = 0;
}

void CThreadInfo::WaitForMainThread(std::condition_variable* finished)
{
    std::unique_lock lock(m_HandOffLock);
    finished->wait(lock, [this] { return m_IsHandedOff; });
    m_IsHandedOff = false;
}

void CThreadInfo::MainThreadTaskFinished(std::condition_variable* finished)
{
    {
        const std::lock_guard lock(m_HandOffLock);
        m_IsHandedOff = true;
    }
    finished->notify_one();
}

} // namespace utility
