#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

/// Whether work may run in parallel. Settings, in the application's key "design":
///
///     ThreadCount     one more than the threads to use; absent: the processors of the machine
///     EnableThreads   false switches parallel work off; true when absent
///
/// Any thread.

/// The threads beside the main one: 3 for a `ThreadCount` of 4, 0 on one processor.
UTILITY_CORE_API int GetThreadCount();
UTILITY_CORE_API bool IsMultiThreadingEnabled();

/// Whether a parallel task runs already, for such tasks do not nest.
UTILITY_CORE_API bool IsMultiThreaded();
UTILITY_CORE_API void IsMultiThreaded(bool isMultiThreaded);

/// Whether a task may use so many threads, or with -1 as many as `GetThreadCount`: at least two
/// that the machine has processors for, enabled, and no parallel task under way.
UTILITY_CORE_API bool CanMultiThread(int threads);

/// Names a thread for debuggers and for what the library tells of threads; cut to 15 bytes.
UTILITY_CORE_API void SetThreadName(DWORD threadId, const char* name);

} // namespace utility
