#include "platform/base/time/Time.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/object/OleException.h"
#include "platform/base/time/LocalTime.h"
#include "platform/base/time/TimeText.h"
#include "platform/system/Clock.h"

namespace utility
{

namespace
{

std::int64_t SecondsOf(const SYSTEMTIME& local)
{
    std::int64_t seconds = 0;
    if (!IsCalendarDate(local) || !SecondsFromLocal(local, seconds) || seconds < 0)
        AfxThrowOleException(E_FAIL);
    return seconds;
}

std::int64_t SecondsOf(const FILETIME& time)
{
    const std::int64_t count = FileTimeToCount(time);
    if (count < FILETIME_OF_1970)
        AfxThrowOleException(E_FAIL);
    return (count - FILETIME_OF_1970) / FILETIME_PER_SECOND;
}

/// A field that does not fit its word makes the date one that does not exist.
WORD Field(int value)
{
    return value >= 0 && value < 0xFFFF ? static_cast<WORD>(value) : WORD{0xFFFF};
}

} // namespace

CTime::CTime(int year, int month, int day, int hour, int minute, int second)
    : CTime(SYSTEMTIME{Field(year), Field(month), 0, Field(day), Field(hour), Field(minute),
                       Field(second), 0})
{
}

CTime::CTime(const SYSTEMTIME& local) : m_Time(SecondsOf(local)) {}

CTime::CTime(const FILETIME& time) : m_Time(SecondsOf(time)) {}

CTime CTime::GetCurrentTime()
{
    return CTime(CoFileTimeNow());
}

bool CTime::GetLocalTm(std::tm& local) const
{
    return LocalFromSeconds(m_Time, local);
}

bool CTime::GetAsSystemTime(SYSTEMTIME& local) const
{
    std::tm fields{};
    if (!GetLocalTm(fields) || fields.tm_year < -1900 || fields.tm_year > 0xFFFF - 1900)
        return false;

    local = {static_cast<WORD>(fields.tm_year + 1900), static_cast<WORD>(fields.tm_mon + 1),
             static_cast<WORD>(fields.tm_wday),        static_cast<WORD>(fields.tm_mday),
             static_cast<WORD>(fields.tm_hour),        static_cast<WORD>(fields.tm_min),
             static_cast<WORD>(fields.tm_sec),         0};
    return true;
}

int CTime::GetYear() const
{
    SYSTEMTIME local{};
    return GetAsSystemTime(local) ? local.wYear : -1;
}

int CTime::GetMonth() const
{
    SYSTEMTIME local{};
    return GetAsSystemTime(local) ? local.wMonth : -1;
}

int CTime::GetDay() const
{
    SYSTEMTIME local{};
    return GetAsSystemTime(local) ? local.wDay : -1;
}

int CTime::GetHour() const
{
    SYSTEMTIME local{};
    return GetAsSystemTime(local) ? local.wHour : -1;
}

int CTime::GetMinute() const
{
    SYSTEMTIME local{};
    return GetAsSystemTime(local) ? local.wMinute : -1;
}

int CTime::GetSecond() const
{
    SYSTEMTIME local{};
    return GetAsSystemTime(local) ? local.wSecond : -1;
}

int CTime::GetDayOfWeek() const
{
    SYSTEMTIME local{};
    return GetAsSystemTime(local) ? local.wDayOfWeek + 1 : -1;
}

CString CTime::Format(const char16_t* format) const
{
    SYSTEMTIME local{};
    return GetAsSystemTime(local) ? FormatTimeText(format, local) : CString();
}

} // namespace utility
