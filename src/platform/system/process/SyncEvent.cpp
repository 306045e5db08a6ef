#include "platform/system/process/SyncEvent.h"

#include <chrono>

namespace utility
{

CEvent::CEvent(bool isSet, bool resetByHand) : m_IsSet(isSet), m_ResetByHand(resetByHand) {}

void CEvent::SetEvent()
{
    const std::lock_guard lock(m_Lock);
    m_IsSet = true;
    // Told under the lock: a waiter may end the event as soon as it is let through.
    m_Changed.notify_all();
}

void CEvent::ResetEvent()
{
    const std::lock_guard lock(m_Lock);
    m_IsSet = false;
}

bool CEvent::Lock(DWORD timeout)
{
    std::unique_lock lock(m_Lock);
    const auto isSet = [this]
    {
        return m_IsSet;
    };
    if (timeout == INFINITE)
        m_Changed.wait(lock, isSet);
    else if (!m_Changed.wait_for(lock, std::chrono::milliseconds(timeout), isSet))
        return false;

    m_IsSet = m_ResetByHand;
    return true;
}

} // namespace utility
