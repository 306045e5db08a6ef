#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

UTILITY_CORE_API DWORD GetCurrentProcessId();

/// The running program's own file as a path in classic form, at most 260 units; "" if the system
/// does not tell.
UTILITY_CORE_API CString GetModuleFileNameW();

} // namespace utility
