#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

/// A number of the present thread that no other thread of this process ever had or will have.
UTILITY_CORE_API DWORD GetCurrentThreadId();

/// Lets the present thread rest for so many milliseconds.
UTILITY_CORE_API void Sleep(DWORD milliseconds);

} // namespace utility
