#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

/// The user's own folder for temporary files, with a closing separator; nobody else can enter it,
/// since names in it may be fixed. Empty, with the last error, if there can be none.
UTILITY_CORE_API CString GetTempFolder();

/// A new, empty file there, of a name that nobody else has; empty if it cannot be made.
UTILITY_CORE_API CString GetTempFile();

} // namespace utility
