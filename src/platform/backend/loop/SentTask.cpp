#include "platform/backend/loop/SentTask.h"

namespace utility
{

void CSendReply::Give(bool hasRun)
{
    const std::lock_guard lock(m_Lock);
    m_HasRun = hasRun;
    m_IsGiven = true;
    // Both told under the lock: once the sender has seen the answer it may end its queue.
    m_Changed.notify_all();
    if (m_SendersQueue)
        m_SendersQueue->WakeUp();
}

bool CSendReply::IsGiven()
{
    const std::lock_guard lock(m_Lock);
    return m_IsGiven;
}

bool CSendReply::Wait()
{
    std::unique_lock lock(m_Lock);
    m_Changed.wait(lock, [this] { return m_IsGiven; });
    return m_HasRun;
}

bool CSendReply::HasRun()
{
    const std::lock_guard lock(m_Lock);
    return m_HasRun;
}

} // namespace utility
