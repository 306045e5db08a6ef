#pragma once

#include <atomic>

namespace utility
{

/// Counts locks that nest and may be left on another thread; an unlock too many does no harm.
class CLockCount
{
public:
    bool IsFree() const { return m_Count == 0; }

    void Change(bool lock)
    {
        int count = m_Count;
        while (!m_Count.compare_exchange_weak(count, lock ? count + 1 : std::max(count - 1, 0)))
        {
        }
    }

private:
    std::atomic<int> m_Count = 0;
};

} // namespace utility
