#pragma once

#include "platform/base/Export.h"
#include "platform/base/FormatArgument.h"
#include "platform/base/String.h"

namespace utility
{

/// A text made from a printf-style format and typed inserts.
///
/// Knows %s %c %d %i %u %x %X %o %f %g %G %e %E %p %%, the widths h, l, ll and I64, the flags - 0 +
/// blank #, field width and precision, both also as *. Numbers print in the "C" locale, exponents
/// with at least two digits; `l` is 32 bits wide. A missing insert or one of a wrong kind asserts
/// in debug builds and is empty otherwise; nothing is read wild.
UTILITY_CORE_API CString PrintFormat(const char16_t* format, CFormatArguments arguments);

} // namespace utility
