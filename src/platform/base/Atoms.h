#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

/// The number of a name, the same for the whole process; a new name gets the next one.
///
/// Names are case-blind and never forgotten. An empty name has number 0, any other one of 0xC000 or
/// more; the numbers go on above 16 bits, so that they do not run out. Any thread.
UTILITY_CORE_API UINT AddAtomW(const CString& name);

/// The number of a window message by its name. As above; the library's own messages have the fixed
/// numbers of resources/MessageNames.h, those of others come behind them.
UTILITY_CORE_API UINT RegisterWindowMessageW(const CString& name);

/// The number of a message that has been registered, or is the library's own; 0 for any other name.
UTILITY_CORE_API UINT FindWindowMessage(const CString& name);

/// The name that a message was registered by, in its first spelling; "" for any other number.
UTILITY_CORE_API CString GetWindowMessageName(UINT message);

} // namespace utility
