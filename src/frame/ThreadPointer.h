#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"
#include "platform/base/collections/Map.h"
#include "platform/system/process/CriticalSection.h"

namespace utility
{

/// A pointer for each thread; not owned. Any thread.
///
/// Threads are known by numbers that are never used again, so what a thread left behind reaches no
/// later one. It stays in the table until `ClearAll`, so a thread clears its own before it ends.
class UTILITY_CORE_API CThreadPointer
{
public:
    CThreadPointer();

    /// Null on a thread that has set none.
    void* Get();
    void Set(void* pointer);
    /// Forgets the calling thread's.
    void Clear();
    void ClearAll();

private:
    CCriticalSection m_Section;
    CMap<DWORD, DWORD, void*, void*> m_Pointers;
};

} // namespace utility
