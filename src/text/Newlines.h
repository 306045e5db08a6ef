#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

/// Lines of a text; a line feed at its end begins no further one.
///
///     ""  0      "a"  1      "a\n"  1      "a\nb"  2
UTILITY_CORE_API int CountLines(const CString& text);

/// Appends the text to `out` without its carriage returns.
UTILITY_CORE_API void ContractNewlines(const CString& in, CString& out);

/// Appends the text to `out` with a carriage return before each line feed, also where one stands
/// already.
UTILITY_CORE_API void ExpandNewlines(const CString& in, CString& out);

/// Appends to `out` each line between `prefix` and `suffix`, with line feeds between.
///
/// A line ends at a carriage return, which takes the unit behind it along, whatever that is.
UTILITY_CORE_API void ReplaceNewlines(const CString& in, CString& out, const CString& prefix,
                                      const CString& suffix);

} // namespace utility
