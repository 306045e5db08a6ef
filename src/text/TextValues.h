#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

/// Upper case at the start and behind white space, lower case elsewhere: "surface MOUNT" becomes
/// "Surface Mount".
UTILITY_CORE_API CString TitleCase(const CString& text);

/// A decimal integer with the classic results: see platform/base/NumberText.h.
UTILITY_CORE_API int StringToInt(const CString& text);

/// "Yes" or "No" from the table of texts.
UTILITY_CORE_API CString GetYesNo(bool value);

} // namespace utility
