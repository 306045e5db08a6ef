#pragma once

#include "platform/base/Export.h"

namespace utility
{

class CString;

/// Builds the next text of a series from a pattern and raises `index`, which counts from 1.
///
/// `*` and `?` become the index, `|` parts alternatives of which the index selects one (the last
/// for good); items behind % stand as they are written. False for an empty pattern (`index` is left
/// alone) and when `?` would need two digits (`result` keeps what was built so far). A pattern
/// without `?` has no end: the caller bounds the series.
///
///     pattern   index   result        index then
///     "R*"      1       "R1"          2
///     "N?"      10      "N", false    11
///     "a|b"     5       "b"           6
UTILITY_CORE_API bool GenerateNextMatchingString(const char16_t* pattern, int& index,
                                                 CString& result);

} // namespace utility
