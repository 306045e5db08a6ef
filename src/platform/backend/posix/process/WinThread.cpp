#include "platform/system/process/WinThread.h"

#include "platform/backend/posix/process/HandleTable.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/process/SyncEvent.h"

#include <atomic>
#include <system_error>
#include <thread>
#include <utility>

namespace utility
{

IMPLEMENT_DYNAMIC(CWinThread, CObject)

namespace
{

constinit thread_local CWinThread* currentThread = nullptr;

/// What the handle of a thread stands for.
struct CThreadRecord final : HandleRecord
{
    DWORD Wait(DWORD milliseconds) override
    {
        return m_Ended.Lock(milliseconds) ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
    }

    CEvent m_Ended{false, true};
};

} // namespace

struct CWinThread::CBackend
{
    AFX_THREADPROC m_Function;
    void* m_Data;
    DWORD m_Number = 0;
    std::atomic<bool> m_IsWanted = false; // the thread was resumed, not given up
    CEvent m_HasNumber;
    CEvent m_Begin;
    std::shared_ptr<CThreadRecord> m_Record = std::make_shared<CThreadRecord>();
};

CWinThread::CWinThread(std::shared_ptr<CBackend> backend)
    : m_hThread(AddHandle(backend->m_Record)),
      m_Backend(std::move(backend))
{
}

CWinThread::~CWinThread()
{
    if (!m_Backend->m_IsWanted)
        m_Backend->m_Begin.SetEvent();
    CloseHandle(m_hThread);
}

DWORD CWinThread::ResumeThread()
{
    if (m_Backend->m_IsWanted.exchange(true))
        return 0;
    m_Backend->m_Begin.SetEvent();
    return 1;
}

/// On the new thread; the object may be gone when the function has returned, or was never wanted.
void CWinThread::RunThread(CWinThread* thread, std::shared_ptr<CBackend> backend)
{
    backend->m_Number = GetCurrentThreadId();
    backend->m_HasNumber.SetEvent();
    backend->m_Begin.Lock();
    if (backend->m_IsWanted)
    {
        currentThread = thread;
        const bool autoDelete = thread->m_bAutoDelete != FALSE;
        backend->m_Function(backend->m_Data);
        if (autoDelete)
            delete thread;
    }
    backend->m_Record->m_Ended.SetEvent();
}

CWinThread* AfxBeginThread(AFX_THREADPROC function, void* data, int, UINT, DWORD flags)
{
    auto backend = std::make_shared<CWinThread::CBackend>();
    backend->m_Function = function;
    backend->m_Data = data;
    std::unique_ptr<CWinThread> thread(new CWinThread(backend));
    try
    {
        std::thread(CWinThread::RunThread, thread.get(), backend).detach();
    }
    catch (const std::system_error&)
    {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    backend->m_HasNumber.Lock();
    thread->m_nThreadID = backend->m_Number;
    CWinThread* begun = thread.release();
    if (!(flags & CREATE_SUSPENDED))
        begun->ResumeThread(); // from here on it may be gone
    return begun;
}

CWinThread* AfxGetThread()
{
    return currentThread;
}

} // namespace utility
