#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/time/FileTime.h"
#include "platform/base/time/SystemTime.h"
#include "platform/base/time/TimestampStruct.h"

namespace utility
{

/// Pattern and order of dates shown and read where none is given. For the process, to be set at
/// start-up.
///
/// Inserts of a pattern are day, month, year, hour, minute, second, millisecond;
/// "%1!02d!-%2!02d!-%3!04d!" by default. A year field of two digits shows the year modulo 100. The
/// order is three letters of D, M, Y: "DMY" by default.
UTILITY_CORE_API CString GetDefaultDatePattern();
UTILITY_CORE_API void SetDefaultDatePattern(const CString& pattern);
UTILITY_CORE_API CString GetDefaultDateOrder();
UTILITY_CORE_API void SetDefaultDateOrder(const CString& order);

/// What stands behind a date pattern where the time is wanted too.
UTILITY_CORE_API const char16_t* GetTimePattern();

/// Database text, "2024-12-31 23:59:58.123"; no change of zone.
UTILITY_CORE_API CString ConvertFileTimeToPgDateString(const FILETIME& time);
UTILITY_CORE_API CString ConvertI64TimeStampToPgDateString(std::int64_t count);
UTILITY_CORE_API CString ConvertSystemTimeToPgDateString(const SYSTEMTIME& fields);
UTILITY_CORE_API CString ConvertTimeStampStructToPgDateString(const TIMESTAMP_STRUCT& stamp);

/// The same within a function call of the database, always with the time:
/// to_timestamp('2024-12-31 23:59:58.123', 'YYYY-MM-DD HH24:MI:SS.MS').
UTILITY_CORE_API CString ConvertI64TimeStampToPgFunctionString(std::int64_t count);
UTILITY_CORE_API CString ConvertTimeStampStructToPgFunctionString(const TIMESTAMP_STRUCT& stamp);

/// Display text by a pattern, an empty one means the default. With `toLocal` a UTC time is shown in
/// the user's zone.
UTILITY_CORE_API CString ConvertFileTimeToMvtDateString(const FILETIME& time, bool toLocal,
                                                        const CString& pattern);
UTILITY_CORE_API CString ConvertI64TimeStampToMvtDateString(std::int64_t count, bool toLocal,
                                                            const CString& pattern);
UTILITY_CORE_API CString ConvertSystemTimeToMvtDateString(const SYSTEMTIME& fields,
                                                          const CString& pattern);

/// Reads three date numbers in `order`, a time and, if it is there, a whole number of milliseconds
/// behind one unit. Any one unit stands between two numbers. False, and the output keeps its
/// preset, for any other text, for an order that does not name each field once, and for a date that
/// does not exist.
///
///     "31/12/2024 23:59:58"     DMY   23:59:58.000
///     "2024-12-31 23:59:58.5"   YMD   23:59:58.005   ".5" is five milliseconds
///     "31/12/2024"              DMY   false          no time
[[nodiscard]] UTILITY_CORE_API bool
ConvertDateTimeStringToFileTime(const CString& text, FILETIME& time, const CString& order);
[[nodiscard]] UTILITY_CORE_API bool
ConvertDateTimeStringToI64(const CString& text, std::int64_t& count, const CString& order);
[[nodiscard]] UTILITY_CORE_API bool ConvertDateTimeStringToTimeStampStruct(const CString& text,
                                                                           TIMESTAMP_STRUCT& stamp,
                                                                           const CString& order);

/// The present in local time, "31-12-2024" and "23:59:58".
UTILITY_CORE_API CString GetCurrentSystemDate();
UTILITY_CORE_API CString GetCurrentSystemTime();

} // namespace utility
