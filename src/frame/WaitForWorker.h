#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

class CThreadInfo;

/// Waits on the main thread until a worker has called `StopRunning`, while the main loop goes on:
/// the worker's boxes are answered, what is posted and sent runs.
///
///     info.Quit();
///     if (!WaitForWorker(info, threadId, 5000))
///         CAppError::ReportLastError();
///
/// False when so many milliseconds have passed before; then the last error (IDS_THREAD_STILL_RUNS)
/// and a trace in context "Threads" name the thread. After true only the end of the thread's own
/// function is missing, so a `join` is safe.
[[nodiscard]] UTILITY_CORE_API bool WaitForWorker(const CThreadInfo& worker, DWORD threadId,
                                                  DWORD milliseconds);

} // namespace utility
