#include "platform/base/time/LocalTime.h"

#include <time.h>

namespace utility
{

namespace
{

constexpr std::int64_t FloorDivide(std::int64_t value, std::int64_t divisor)
{
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

/// Seconds that the user's clock is ahead of UTC at that time.
bool GetOffset(std::int64_t seconds, std::int64_t& offset)
{
    std::tm local{};
    if (!LocalFromSeconds(seconds, local))
        return false;

    offset = local.tm_gmtoff;
    return true;
}

bool IsOffset(std::int64_t seconds, std::int64_t offset)
{
    std::int64_t present = 0;
    return GetOffset(seconds, present) && present == offset;
}

bool SystemTimeFromSeconds(std::int64_t seconds, WORD milliseconds, SYSTEMTIME& fields)
{
    const std::int64_t count =
        seconds * FILETIME_PER_SECOND + FILETIME_OF_1970 + milliseconds * FILETIME_PER_MILLISECOND;
    return FileTimeToSystemTime(CountToFileTime(count), fields);
}

} // namespace

bool LocalFromSeconds(std::int64_t seconds, std::tm& local)
{
    ::tzset(); // the call below is not bound to look at TZ by itself
    const std::time_t time = seconds;
    std::tm fields{};
    if (!::localtime_r(&time, &fields))
        return false;

    local = fields;
    return true;
}

bool SecondsFromLocal(const SYSTEMTIME& local, std::int64_t& seconds)
{
    constexpr std::int64_t DAY = 86400; // no zone changes its clocks twice within two days
    FILETIME time{};
    if (!SystemTimeToFileTime(local, time))
        return false;

    const std::int64_t shown =
        FloorDivide(FileTimeToCount(time) - FILETIME_OF_1970, FILETIME_PER_SECOND);
    std::int64_t before = 0;
    std::int64_t after = 0;
    if (!GetOffset(shown - DAY, before) || !GetOffset(shown + DAY, after))
        return false;

    // A doubled hour fits both offsets, a skipped one neither: the offset before the change serves
    // both.
    const bool isAfter = !IsOffset(shown - before, before) && IsOffset(shown - after, after);
    seconds = shown - (isAfter ? after : before);
    return true;
}

bool SystemTimeToTzSpecificLocalTime(const SYSTEMTIME& utc, SYSTEMTIME& local)
{
    FILETIME time{};
    std::tm fields{};
    if (!SystemTimeToFileTime(utc, time) ||
        !LocalFromSeconds(
            FloorDivide(FileTimeToCount(time) - FILETIME_OF_1970, FILETIME_PER_SECOND), fields))
        return false;

    local = {static_cast<WORD>(fields.tm_year + 1900), static_cast<WORD>(fields.tm_mon + 1),
             static_cast<WORD>(fields.tm_wday),        static_cast<WORD>(fields.tm_mday),
             static_cast<WORD>(fields.tm_hour),        static_cast<WORD>(fields.tm_min),
             static_cast<WORD>(fields.tm_sec),         utc.wMilliseconds};
    return true;
}

bool TzSpecificLocalTimeToSystemTime(const SYSTEMTIME& local, SYSTEMTIME& utc)
{
    std::int64_t seconds = 0;
    return SecondsFromLocal(local, seconds) &&
           SystemTimeFromSeconds(seconds, local.wMilliseconds, utc);
}

} // namespace utility
