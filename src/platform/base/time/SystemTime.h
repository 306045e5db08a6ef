#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"
#include "platform/base/time/FileTime.h"

namespace utility
{

/// A date and time by calendar fields; whether UTC or local is said by who holds it.
struct SYSTEMTIME
{
    WORD wYear;
    WORD wMonth;     // 1 to 12
    WORD wDayOfWeek; // 0 is Sunday; ignored on the way to a count
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;

    constexpr bool operator==(const SYSTEMTIME&) const = default;
};

/// All fields form a date that exists, of the years 1601 to 30827.
UTILITY_CORE_API bool IsCalendarDate(const SYSTEMTIME& fields);

/// False, and `time` keeps its preset, for what is no date.
[[nodiscard]] UTILITY_CORE_API bool SystemTimeToFileTime(const SYSTEMTIME& fields, FILETIME& time);

/// False, and `fields` keeps its preset, for a count from 2^63 on.
[[nodiscard]] UTILITY_CORE_API bool FileTimeToSystemTime(const FILETIME& time, SYSTEMTIME& fields);

/// From UTC to the zone of the user, as TZ names it at the call. Outputs keep their presets for
/// what is no date.
[[nodiscard]] UTILITY_CORE_API bool SystemTimeToTzSpecificLocalTime(const SYSTEMTIME& utc,
                                                                    SYSTEMTIME& local);

/// The way back; of a doubled hour the first, a skipped time is read as if the clock had not been
/// put forward.
[[nodiscard]] UTILITY_CORE_API bool TzSpecificLocalTimeToSystemTime(const SYSTEMTIME& local,
                                                                    SYSTEMTIME& utc);

} // namespace utility
