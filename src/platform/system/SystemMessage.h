#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

/// What the system says of a failure, in the user's language, without a line end; "" for an unknown
/// code.
UTILITY_CORE_API CString GetSystemMessage(DWORD code);

} // namespace utility
