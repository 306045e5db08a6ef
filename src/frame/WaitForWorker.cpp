#include "frame/WaitForWorker.h"

#include "frame/AppError.h"
#include "frame/AppLog.h"
#include "frame/ThreadInfo.h"
#include "platform/system/process/WinThread.h"
#include "platform/system/window/MessageLoop.h"
#include "resources/StringIds.h"

namespace utility
{

namespace
{

/// Its name, else its number.
CString Describe(DWORD threadId)
{
    CString name = GetThreadName(threadId);
    if (name.IsEmpty())
        name.Format(u"%u", threadId);
    return name;
}

} // namespace

bool WaitForWorker(const CThreadInfo& worker, DWORD threadId, DWORD milliseconds)
{
    if (GetMessageLoop().RunUntil([&] { return !worker.IsRunning(); }, milliseconds))
        return true;

    static const CAppLogContext& context = *new CAppLogContext(u"Threads", 0);
    const CString thread = Describe(threadId);
    CAppLog::Log(context, u"Thread %1 still runs after %2!lu! ms\n", thread, milliseconds);
    CAppError::SetLastError(IDS_THREAD_STILL_RUNS, thread);
    return false;
}

} // namespace utility
