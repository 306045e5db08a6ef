#include "text/time/TimeConversion.h"

#include "platform/base/time/Time.h"

namespace utility
{

namespace
{

constexpr std::uint32_t NANOSECONDS_PER_MILLISECOND = 1'000'000;

} // namespace

std::int64_t ConvertFileTimeToInt64(const FILETIME& time)
{
    return FileTimeToCount(time);
}

FILETIME ConvertInt64ToFileTime(std::int64_t count)
{
    return CountToFileTime(count);
}

std::int64_t ConvertSystemTimeToInt64(const SYSTEMTIME& fields)
{
    FILETIME time{};
    return SystemTimeToFileTime(fields, time) ? FileTimeToCount(time) : 0;
}

SYSTEMTIME ConvertInt64ToSystemTime(std::int64_t count)
{
    SYSTEMTIME fields{};
    return FileTimeToSystemTime(CountToFileTime(count), fields) ? fields : SYSTEMTIME{};
}

std::int64_t ConvertCTimeToInt64(const CTime& time)
{
    SYSTEMTIME local{};
    return time.GetAsSystemTime(local) ? ConvertSystemTimeToInt64(local) : 0;
}

std::int64_t ConvertTimeStampStructToInt64(const TIMESTAMP_STRUCT& stamp)
{
    return ConvertSystemTimeToInt64(ConvertTimeStampStructToSystemTime(stamp));
}

TIMESTAMP_STRUCT ConvertInt64ToTimeStampStruct(std::int64_t count)
{
    return ConvertSystemTimeToTimeStampStruct(ConvertInt64ToSystemTime(count));
}

TIMESTAMP_STRUCT ConvertSystemTimeToTimeStampStruct(const SYSTEMTIME& fields)
{
    return {static_cast<std::int16_t>(fields.wYear),
            fields.wMonth,
            fields.wDay,
            fields.wHour,
            fields.wMinute,
            fields.wSecond,
            fields.wMilliseconds * NANOSECONDS_PER_MILLISECOND};
}

SYSTEMTIME ConvertTimeStampStructToSystemTime(const TIMESTAMP_STRUCT& stamp)
{
    return {static_cast<WORD>(stamp.year),
            stamp.month,
            0,
            stamp.day,
            stamp.hour,
            stamp.minute,
            stamp.second,
            static_cast<WORD>(stamp.fraction / NANOSECONDS_PER_MILLISECOND)};
}

} // namespace utility
