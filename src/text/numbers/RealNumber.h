#pragma once

#include "platform/base/Export.h"

namespace utility
{

class CString;

/// Reads a number at `start` and gives the index behind it, or `start` (and `value` 0) if none
/// stands there.
///
/// Blanks may stand before the number, behind its sign and around its exponent's `e`. The decimal
/// character is `decimalChar`, and, unless `onlyDecimalChar`, both `.` and `,` as well; 0 means
/// none. Never locale-dependent.
///
///     text       value    index     with decimal char `.` and onlyDecimalChar false
///     "- 5"      -5       3
///     "3,3"      3.3      3
///     "6 e2"     600      4
///     "5e"       5        1         no digits: the exponent is left
///     "."        0        1         a lone separator counts as a number
///     "e5"       0        0         an exponent alone does not
///     "9e999"    inf      5
UTILITY_CORE_API int ReadRealNumber(double& value, const CString& text, int start,
                                    char16_t decimalChar, bool onlyDecimalChar);

} // namespace utility
