#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

/// A number of the present thread that no other thread of this process ever had or will have.
UTILITY_CORE_API DWORD GetCurrentThreadId();

/// Stands for the number of the present thread.
constexpr DWORD CALLING_THREAD = 0xFFFFFFFF;

/// Names a living thread for debuggers and for `GetThreadName`. The system keeps the first 15 bytes;
/// the thread must have asked for its number before.
UTILITY_CORE_API void NameThread(DWORD number, const char* name);
/// The name given to a living thread; empty for any other.
UTILITY_CORE_API CString GetThreadName(DWORD number);

/// The processors that threads may run on, at least 1.
UTILITY_CORE_API int GetProcessorCount();

/// Lets the present thread rest for so many milliseconds.
UTILITY_CORE_API void Sleep(DWORD milliseconds);

} // namespace utility
