#pragma once

#include "platform/base/Export.h"

namespace utility
{

class CString;

/// Shows a file in the user's editor; false, with the reason in the last system code, if it cannot
/// be opened there.
[[nodiscard]] UTILITY_CORE_API bool EditFile(const CString& path);

} // namespace utility
