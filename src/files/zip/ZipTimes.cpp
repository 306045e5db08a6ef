#include "files/zip/ZipTimes.h"

#include "platform/base/time/SystemTime.h"

#include <algorithm>
#include <limits>

namespace utility
{

namespace
{

constexpr WORD FIRST_YEAR = 1980;
constexpr WORD LAST_YEAR = FIRST_YEAR + 127;
constexpr std::uint32_t FIRST_DOS_TIME = 0x00210000; // 1 January 1980, 00:00:00
constexpr std::uint32_t LAST_DOS_TIME = 0xFF9FBF7D;  // 31 December 2107, 23:59:58

std::uint32_t PackDosTime(const SYSTEMTIME& local)
{
    const std::uint32_t date =
        (local.wYear - FIRST_YEAR) << 9U | std::uint32_t{local.wMonth} << 5U | local.wDay;
    const std::uint32_t time =
        std::uint32_t{local.wHour} << 11U | std::uint32_t{local.wMinute} << 5U | local.wSecond / 2U;
    return date << 16U | time;
}

SYSTEMTIME UnpackDosTime(std::uint32_t dosTime)
{
    const auto bits = [dosTime](unsigned shift, unsigned count)
    {
        return static_cast<WORD>(dosTime >> shift & ((1U << count) - 1));
    };
    SYSTEMTIME local{};
    local.wYear = static_cast<WORD>(FIRST_YEAR + bits(25, 7));
    local.wMonth = bits(21, 4);
    local.wDay = bits(16, 5);
    local.wHour = bits(11, 5);
    local.wMinute = bits(5, 6);
    local.wSecond = static_cast<WORD>(bits(0, 5) * 2);
    return local;
}

} // namespace

std::uint32_t DosTimeOf(const FILETIME& time)
{
    SYSTEMTIME utc{};
    SYSTEMTIME local{};
    if (!FileTimeToSystemTime(time, utc) || !SystemTimeToTzSpecificLocalTime(utc, local) ||
        local.wYear < FIRST_YEAR)
        return FIRST_DOS_TIME;
    return local.wYear > LAST_YEAR ? LAST_DOS_TIME : PackDosTime(local);
}

FILETIME FileTimeOfDos(std::uint32_t dosTime)
{
    SYSTEMTIME local = UnpackDosTime(dosTime);
    if (!IsCalendarDate(local))
        local = UnpackDosTime(FIRST_DOS_TIME);
    SYSTEMTIME utc{};
    FILETIME time{};
    if (TzSpecificLocalTimeToSystemTime(local, utc))
        (void)SystemTimeToFileTime(utc, time); // a date that exists, by now
    return time;
}

std::int32_t UnixTimeOf(const FILETIME& time)
{
    using CLimits = std::numeric_limits<std::int32_t>;
    const std::int64_t count = FileTimeToCount(time) - FILETIME_OF_1970;
    const std::int64_t seconds =
        count / FILETIME_PER_SECOND - (count % FILETIME_PER_SECOND < 0 ? 1 : 0);
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(seconds, CLimits::min(), CLimits::max()));
}

FILETIME FileTimeOfUnix(std::int64_t seconds)
{
    return CountToFileTime(FILETIME_OF_1970 + seconds * FILETIME_PER_SECOND);
}

CZipTimes ChooseZipTimes(const CZipUnixTimes& local, const CZipUnixTimes& central,
                         std::uint32_t dosTime)
{
    const std::optional<std::int32_t> modified =
        local.m_Modified ? local.m_Modified : central.m_Modified;
    CZipTimes times;
    times.m_Modified = modified ? FileTimeOfUnix(*modified) : FileTimeOfDos(dosTime);
    times.m_Accessed = local.m_Accessed ? FileTimeOfUnix(*local.m_Accessed) : times.m_Modified;
    times.m_Created = local.m_Created ? FileTimeOfUnix(*local.m_Created) : times.m_Modified;
    return times;
}

} // namespace utility
