#pragma once

#include "platform/base/Export.h"

namespace utility
{

/// The one order of names that lists, grids, name ranges and the library index use; only the sign
/// of the result counts.
///
/// Text in < > stands first, then what is neither letter nor digit, then letters and digits by
/// upper-cased units. Runs of digits are compared as numbers with `numbersByRun`, the longer run
/// being the larger; with `numbersByValue` fractions behind `.` or `,` count too, and texts that
/// have matched to their ends are ordered by length.
///
///     flags false, true, true      order
///     "<None>"  "A"                less
///     "R9"      "R10"              less
///     "R10"     "r10"              equal
///     "1.5"     "1.50"             less
///     "1,5"     "1.5"              greater
///     "1.a1"    "1a1."             equal, though not the same text
///
/// Odd texts can stand in a circle ("0." < "0  " < "0,,. " < "0."), so `std::sort` must not be used
/// on this order; `std::stable_sort` or bisection always end and lose nothing. Null pointers count
/// as empty. Any thread.
UTILITY_CORE_API int StringCompare(const char16_t* left, const char16_t* right, bool caseSensitive,
                                   bool numbersByRun, bool numbersByValue);

} // namespace utility
