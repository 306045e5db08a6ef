#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

/// Offers a text to other programs; false if the clipboard cannot be had. User-interface thread
/// only.
[[nodiscard]] UTILITY_CORE_API bool StringToClipboard(const CString& text);

} // namespace utility
