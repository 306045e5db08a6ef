#pragma once

#include <mutex>

namespace utility
{

/// A lock that its holder may take again; free after as many unlocks as locks.
class CCriticalSection
{
public:
    CCriticalSection() = default;
    CCriticalSection(const CCriticalSection&) = delete;
    CCriticalSection& operator=(const CCriticalSection&) = delete;

    void Lock() { m_Mutex.lock(); }
    void Unlock() { m_Mutex.unlock(); }

private:
    std::recursive_mutex m_Mutex;
};

/// Holds a lock at most once, until told or gone.
class CSingleLock
{
public:
    explicit CSingleLock(CCriticalSection& section, bool lockNow = false) : m_Section(section)
    {
        if (lockNow)
            Lock();
    }
    ~CSingleLock() { Unlock(); }
    CSingleLock(const CSingleLock&) = delete;
    CSingleLock& operator=(const CSingleLock&) = delete;

    void Lock()
    {
        if (m_IsLocked)
            return;
        m_Section.Lock();
        m_IsLocked = true;
    }
    void Unlock()
    {
        if (!m_IsLocked)
            return;
        m_IsLocked = false;
        m_Section.Unlock();
    }
    bool IsLocked() const { return m_IsLocked; }

private:
    CCriticalSection& m_Section;
    bool m_IsLocked = false;
};

} // namespace utility
