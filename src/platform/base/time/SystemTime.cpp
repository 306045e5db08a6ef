#include "platform/base/time/SystemTime.h"

#include <chrono>

namespace utility
{

namespace
{

constexpr int FIRST_YEAR = 1601;
constexpr int LAST_YEAR = 30827; // the last year that a 64-bit count can reach
constexpr std::chrono::sys_days FIRST_DAY{std::chrono::year{FIRST_YEAR} / 1 / 1};

std::chrono::year_month_day DateOf(const SYSTEMTIME& fields)
{
    return std::chrono::year{fields.wYear} / fields.wMonth / fields.wDay;
}

} // namespace

bool IsCalendarDate(const SYSTEMTIME& fields)
{
    return fields.wYear >= FIRST_YEAR && fields.wYear <= LAST_YEAR && fields.wMonth <= 12 &&
           fields.wDay <= 31 && DateOf(fields).ok() && fields.wHour < 24 && fields.wMinute < 60 &&
           fields.wSecond < 60 && fields.wMilliseconds < 1000;
}

bool SystemTimeToFileTime(const SYSTEMTIME& fields, FILETIME& time)
{
    if (!IsCalendarDate(fields))
        return false;

    const std::int64_t days = (std::chrono::sys_days(DateOf(fields)) - FIRST_DAY).count();
    const std::int64_t seconds =
        ((days * 24 + fields.wHour) * 60 + fields.wMinute) * 60 + fields.wSecond;
    time = CountToFileTime(seconds * FILETIME_PER_SECOND +
                           fields.wMilliseconds * FILETIME_PER_MILLISECOND);
    return true;
}

bool FileTimeToSystemTime(const FILETIME& time, SYSTEMTIME& fields)
{
    const std::int64_t count = FileTimeToCount(time);
    if (count < 0)
        return false;

    const auto day = FIRST_DAY + std::chrono::days(count / FILETIME_PER_DAY);
    const std::chrono::year_month_day date(day);
    const std::int64_t milliseconds = count % FILETIME_PER_DAY / FILETIME_PER_MILLISECOND;
    const std::int64_t seconds = milliseconds / 1000;
    fields.wYear = static_cast<WORD>(static_cast<int>(date.year()));
    fields.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
    fields.wDayOfWeek = static_cast<WORD>(std::chrono::weekday(day).c_encoding());
    fields.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
    fields.wHour = static_cast<WORD>(seconds / 3600);
    fields.wMinute = static_cast<WORD>(seconds / 60 % 60);
    fields.wSecond = static_cast<WORD>(seconds % 60);
    fields.wMilliseconds = static_cast<WORD>(milliseconds % 1000);
    return true;
}

} // namespace utility
