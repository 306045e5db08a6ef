#pragma once

#include "platform/base/Export.h"
#include "platform/base/time/FileTime.h"
#include "platform/base/time/SystemTime.h"
#include "platform/base/time/TimestampStruct.h"

namespace utility
{

class CTime;

/// One point in time in all its forms; none changes the zone. The 64-bit form is the count of a
/// `FILETIME`, which database fields and document properties store.
///
/// Fields that are no date give the count 0; a negative count gives all fields 0.
UTILITY_CORE_API std::int64_t ConvertFileTimeToInt64(const FILETIME& time);
UTILITY_CORE_API FILETIME ConvertInt64ToFileTime(std::int64_t count);

UTILITY_CORE_API std::int64_t ConvertSystemTimeToInt64(const SYSTEMTIME& fields);
UTILITY_CORE_API SYSTEMTIME ConvertInt64ToSystemTime(std::int64_t count);

/// The local fields, taken as they stand, without milliseconds.
UTILITY_CORE_API std::int64_t ConvertCTimeToInt64(const CTime& time);

UTILITY_CORE_API std::int64_t ConvertTimeStampStructToInt64(const TIMESTAMP_STRUCT& stamp);
UTILITY_CORE_API TIMESTAMP_STRUCT ConvertInt64ToTimeStampStruct(std::int64_t count);

UTILITY_CORE_API TIMESTAMP_STRUCT ConvertSystemTimeToTimeStampStruct(const SYSTEMTIME& fields);
/// Day of the week 0; the fraction is cut to milliseconds.
UTILITY_CORE_API SYSTEMTIME ConvertTimeStampStructToSystemTime(const TIMESTAMP_STRUCT& stamp);

} // namespace utility
