#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/time/SystemTime.h"

namespace utility
{

/// The fields of a date as text, with English names in every locale.
///
///     %Y %y      year in four digits or more, in two
///     %m %b %B   month: 07, Jul, July
///     %d %j      day of the month, of the year
///     %a %A      day of the week: Sun, Sunday
///     %H %I %p   hour of 24, of 12, AM or PM
///     %M %S      minute, second
///     %%         one percent sign
///
/// An unknown mark stands for itself. The fields must be a date; its day of the week is reckoned,
/// not taken.
UTILITY_CORE_API CString FormatTimeText(const char16_t* format, const SYSTEMTIME& fields);

/// English name of a month, 1 to 12.
UTILITY_CORE_API const char16_t* GetMonthName(int month);

} // namespace utility
