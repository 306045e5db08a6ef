#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/base/object/Object.h"

#include <memory>

namespace utility
{

class CWnd;

/// What a thread does; its result counts for nobody here.
using AFX_THREADPROC = UINT (*)(void* data);

/// For `AfxBeginThread`: the thread begins at `ResumeThread`.
constexpr DWORD CREATE_SUSPENDED = 4;

/// A thread made by `AfxBeginThread`.
///
/// The object ends with its thread. Who wants to wait for the thread begins it suspended, clears
/// `m_bAutoDelete` and then resumes it; the object is his from then on, to be deleted once the
/// handle is signalled.
class UTILITY_CORE_API CWinThread : public CObject
{
    DECLARE_DYNAMIC(CWinThread)

public:
    /// Closes the handle. A thread that was never resumed ends without having begun.
    ~CWinThread() override;

    /// 1 if the thread was suspended, 0 if it has begun before.
    DWORD ResumeThread();

    HANDLE m_hThread = nullptr; // signalled once the thread has ended
    DWORD m_nThreadID = 0;      // what GetCurrentThreadId gives on it
    CWnd* m_pMainWnd = nullptr; // for the host's use; not owned
    BOOL m_bAutoDelete = TRUE;

private:
    friend UTILITY_CORE_API CWinThread* AfxBeginThread(AFX_THREADPROC, void*, int, UINT, DWORD);
    struct CBackend; // platform/backend/posix/process/WinThread.cpp

    explicit CWinThread(std::shared_ptr<CBackend> backend);
    static void RunThread(CWinThread* thread, std::shared_ptr<CBackend> backend);

    std::shared_ptr<CBackend> m_Backend; // shared with the thread
};

/// Null, with the last error, if the system has no thread to give. Priority and stack size are
/// taken and ignored.
UTILITY_CORE_API CWinThread* AfxBeginThread(AFX_THREADPROC function, void* data, int priority = 0,
                                            UINT stackSize = 0, DWORD flags = 0);
/// The present thread's object; null on a thread that was made otherwise.
UTILITY_CORE_API CWinThread* AfxGetThread();

/// A number of the present thread that no other thread of this process ever had or will have.
UTILITY_CORE_API DWORD GetCurrentThreadId();

/// Stands for the number of the present thread.
constexpr DWORD CALLING_THREAD = 0xFFFFFFFF;

/// Names a living thread for debuggers and for `GetThreadName`. The system keeps the first 15
/// bytes; the thread must have asked for its number before.
UTILITY_CORE_API void NameThread(DWORD number, const char* name);
/// The name given to a living thread; empty for any other.
UTILITY_CORE_API CString GetThreadName(DWORD number);

/// The processors that threads may run on, at least 1.
UTILITY_CORE_API int GetProcessorCount();

/// Lets the present thread rest for so many milliseconds.
UTILITY_CORE_API void Sleep(DWORD milliseconds);

} // namespace utility
