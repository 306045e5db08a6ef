#include "platform/base/time/OleDateTime.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/time/LocalTime.h"
#include "platform/base/time/OleDateTimeSpan.h"
#include "platform/base/time/Time.h"
#include "platform/base/time/TimeText.h"
#include "platform/system/Clock.h"
#include "platform/system/Locale.h"

#include <chrono>
#include <cmath>

namespace utility
{

namespace
{

constexpr std::chrono::sys_days DAY_ZERO{std::chrono::year{1899} / 12 / 30};
constexpr int FIRST_YEAR = 100;
constexpr int LAST_YEAR = 9999;
constexpr int SECONDS_PER_DAY = 86400;

/// Whole days plus the time of day, which is never negative.
struct CDayAndSecond
{
    std::int64_t m_Day;
    std::int64_t m_Second;
};

bool SplitDate(DATE date, CDayAndSecond& split)
{
    // Not written as two refusals, since a date that is no number must fail too.
    if (!(date > DATE_MIN_DAY - 1 && date < DATE_MAX_DAY + 1))
        return false;

    const double day = std::trunc(date);
    const double second = std::round(std::fabs(date - day) * SECONDS_PER_DAY);
    split = {static_cast<std::int64_t>(day), static_cast<std::int64_t>(second)};
    if (split.m_Second == SECONDS_PER_DAY)
        split = {split.m_Day + 1, 0};
    return split.m_Day <= DATE_MAX_DAY;
}

/// Days and seconds on one line, where the day count runs backwards within each day before day
/// zero.
double Linear(DATE date)
{
    const double day = std::trunc(date);
    return day + std::fabs(date - day);
}

DATE FromLinear(double days)
{
    const double day = std::floor(days);
    return day < 0 ? day - (days - day) : days;
}

WORD Field(int value)
{
    return value >= 0 && value < 0xFFFF ? static_cast<WORD>(value) : WORD{0xFFFF};
}

SYSTEMTIME MakeFields(int year, int month, int day, int hour, int minute, int second)
{
    return {Field(year), Field(month), 0, Field(day), Field(hour), Field(minute), Field(second), 0};
}

} // namespace

bool SystemTimeToVariantTime(const SYSTEMTIME& fields, DATE& date)
{
    if (fields.wYear < FIRST_YEAR || fields.wYear > LAST_YEAR || fields.wMonth > 12 ||
        fields.wDay > 31 || fields.wHour > 23 || fields.wMinute > 59 || fields.wSecond > 59)
        return false;

    const auto day = std::chrono::year{fields.wYear} / fields.wMonth / fields.wDay;
    if (!day.ok())
        return false;

    const auto days = static_cast<double>((std::chrono::sys_days(day) - DAY_ZERO).count());
    const double time =
        ((fields.wHour * 60 + fields.wMinute) * 60 + fields.wSecond) / double{SECONDS_PER_DAY};
    date = days < 0 ? days - time : days + time;
    return true;
}

bool VariantTimeToSystemTime(DATE date, SYSTEMTIME& fields)
{
    CDayAndSecond split{};
    if (!SplitDate(date, split))
        return false;

    const auto day = DAY_ZERO + std::chrono::days(split.m_Day);
    const std::chrono::year_month_day calendar(day);
    fields = {static_cast<WORD>(static_cast<int>(calendar.year())),
              static_cast<WORD>(static_cast<unsigned>(calendar.month())),
              static_cast<WORD>(std::chrono::weekday(day).c_encoding()),
              static_cast<WORD>(static_cast<unsigned>(calendar.day())),
              static_cast<WORD>(split.m_Second / 3600),
              static_cast<WORD>(split.m_Second / 60 % 60),
              static_cast<WORD>(split.m_Second % 60),
              0};
    return true;
}

COleDateTime::COleDateTime(DATE date) : m_dt(date)
{
    SYSTEMTIME fields{};
    m_status = VariantTimeToSystemTime(date, fields) ? valid : invalid;
}

COleDateTime::COleDateTime(int year, int month, int day, int hour, int minute, int second)
{
    SetDateTime(year, month, day, hour, minute, second);
}

COleDateTime::COleDateTime(const SYSTEMTIME& fields)
{
    SetFields(fields);
}

COleDateTime::COleDateTime(const FILETIME& time)
{
    SYSTEMTIME utc{};
    SYSTEMTIME local{};
    if (FileTimeToSystemTime(time, utc) && SystemTimeToTzSpecificLocalTime(utc, local))
        SetFields(local);
    else
        m_status = invalid;
}

COleDateTime::COleDateTime(std::int64_t time)
{
    SYSTEMTIME local{};
    if (CTime(time).GetAsSystemTime(local))
        SetFields(local);
    else
        m_status = invalid;
}

COleDateTime COleDateTime::GetCurrentTime()
{
    return COleDateTime(GetLocalTime());
}

int COleDateTime::GetYear() const
{
    return GetPart(&SYSTEMTIME::wYear);
}

int COleDateTime::GetMonth() const
{
    return GetPart(&SYSTEMTIME::wMonth);
}

int COleDateTime::GetDay() const
{
    return GetPart(&SYSTEMTIME::wDay);
}

int COleDateTime::GetHour() const
{
    return GetPart(&SYSTEMTIME::wHour);
}

int COleDateTime::GetMinute() const
{
    return GetPart(&SYSTEMTIME::wMinute);
}

int COleDateTime::GetSecond() const
{
    return GetPart(&SYSTEMTIME::wSecond);
}

int COleDateTime::GetDayOfWeek() const
{
    const int day = GetPart(&SYSTEMTIME::wDayOfWeek);
    return day < 0 ? day : day + 1;
}

bool COleDateTime::GetAsSystemTime(SYSTEMTIME& fields) const
{
    return m_status == valid && VariantTimeToSystemTime(m_dt, fields);
}

bool COleDateTime::SetDateTime(int year, int month, int day, int hour, int minute, int second)
{
    return SetFields(MakeFields(year, month, day, hour, minute, second));
}

bool COleDateTime::SetDate(int year, int month, int day)
{
    return SetDateTime(year, month, day, 0, 0, 0);
}

bool COleDateTime::SetTime(int hour, int minute, int second)
{
    return SetDateTime(1899, 12, 30, hour, minute, second);
}

bool COleDateTime::ParseDateTime(const CString& text)
{
    const bool isRead = VarDateFromStr(text, m_dt) == S_OK;
    m_status = isRead ? valid : invalid;
    return isRead;
}

CString COleDateTime::Format(const char16_t* format) const
{
    if (m_status == null)
        return CString();

    SYSTEMTIME fields{};
    return GetAsSystemTime(fields) ? FormatTimeText(format, fields) : CString(u"Invalid DateTime");
}

CString COleDateTime::Format() const
{
    if (m_status == null)
        return CString();

    CString text = u"Invalid DateTime";
    if (m_status == valid)
        VarBstrFromDate(m_dt, text);
    return text;
}

bool COleDateTime::operator==(const COleDateTime& other) const
{
    return m_status == other.m_status && (m_status != valid || m_dt == other.m_dt);
}

bool COleDateTime::operator<(const COleDateTime& other) const
{
    return m_status == valid && other.m_status == valid && Linear(m_dt) < Linear(other.m_dt);
}

COleDateTimeSpan COleDateTime::operator-(const COleDateTime& other) const
{
    COleDateTimeSpan span;
    if (m_status == valid && other.m_status == valid)
        return COleDateTimeSpan(Linear(m_dt) - Linear(other.m_dt));

    span.SetStatus(m_status == null || other.m_status == null ? COleDateTimeSpan::null
                                                              : COleDateTimeSpan::invalid);
    return span;
}

COleDateTime COleDateTime::operator+(const COleDateTimeSpan& span) const
{
    if (m_status == valid && span.GetStatus() == COleDateTimeSpan::valid)
        return COleDateTime(FromLinear(Linear(m_dt) + span.m_span));

    COleDateTime sum;
    sum.SetStatus(m_status == null || span.GetStatus() == COleDateTimeSpan::null ? null : invalid);
    return sum;
}

COleDateTime COleDateTime::operator-(const COleDateTimeSpan& span) const
{
    COleDateTimeSpan opposite = span;
    opposite.m_span = -span.m_span;
    return *this + opposite;
}

bool COleDateTime::SetFields(const SYSTEMTIME& fields)
{
    m_status = SystemTimeToVariantTime(fields, m_dt) ? valid : invalid;
    return m_status == valid;
}

int COleDateTime::GetPart(WORD SYSTEMTIME::*part) const
{
    SYSTEMTIME fields{};
    return GetAsSystemTime(fields) ? fields.*part : -1;
}

} // namespace utility
