#pragma once

#include "platform/base/Export.h"

namespace utility
{

class CString;

/// Looks up the folder of the running program, with its trailing separator, in classic form.
UTILITY_CORE_API void SetProgramPath();

/// That folder; looked up at the first use.
UTILITY_CORE_API CString GetProgramPath();

/// Makes the program's path without its extension the application's `m_pszExeName`.
UTILITY_CORE_API void SetApplicationExeName();

} // namespace utility
