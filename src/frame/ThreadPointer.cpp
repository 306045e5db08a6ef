#include "frame/ThreadPointer.h"

#include "platform/system/process/WinThread.h"

namespace utility
{

namespace
{

constexpr UINT BUCKETS = 17;
constexpr int BLOCK_SIZE = 10;

} // namespace

CThreadPointer::CThreadPointer() : m_Pointers(BLOCK_SIZE)
{
    m_Pointers.InitHashTable(BUCKETS);
}

void* CThreadPointer::Get()
{
    const CSingleLock lock(m_Section, true);
    void* pointer = nullptr;
    m_Pointers.Lookup(GetCurrentThreadId(), pointer);
    return pointer;
}

void CThreadPointer::Set(void* pointer)
{
    const CSingleLock lock(m_Section, true);
    m_Pointers.SetAt(GetCurrentThreadId(), pointer);
}

void CThreadPointer::Clear()
{
    const CSingleLock lock(m_Section, true);
    m_Pointers.RemoveKey(GetCurrentThreadId());
}

void CThreadPointer::ClearAll()
{
    const CSingleLock lock(m_Section, true);
    m_Pointers.RemoveAll();
}

} // namespace utility
