#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

/// White space here: blank, tab, line feed, carriage return.
UTILITY_CORE_API bool ContainsWhiteSpace(const CString& text);

/// The text without any, wherever it stood.
UTILITY_CORE_API CString StripWhiteSpace(const CString& text);

} // namespace utility
