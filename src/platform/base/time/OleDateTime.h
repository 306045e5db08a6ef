#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/time/SystemTime.h"

namespace utility
{

class COleDateTimeSpan;

/// The day count of a date: days since 30 December 1899, the time of day as a fraction that is
/// always counted upwards.
using DATE = double;

/// First and last day count: 1 January 100 and 31 December 9999.
constexpr int DATE_MIN_DAY = -657434;
constexpr int DATE_MAX_DAY = 2958465;

/// False, and `date` keeps its preset, for what is no date of the years 100 to 9999; milliseconds
/// are dropped.
[[nodiscard]] UTILITY_CORE_API bool SystemTimeToVariantTime(const SYSTEMTIME& fields, DATE& date);

/// To the nearest second. False, and `fields` keeps its preset, outside the years 100 to 9999.
[[nodiscard]] UTILITY_CORE_API bool VariantTimeToSystemTime(DATE date, SYSTEMTIME& fields);

/// A date and time without a zone, as a count of days, with a status.
///
/// Fields that are no date, and texts that are none, give the status invalid; its parts are then
/// -1.
class UTILITY_CORE_API COleDateTime
{
public:
    enum DateTimeStatus
    {
        valid = 0,
        invalid = 1,
        null = 2
    };

    constexpr COleDateTime() = default;
    explicit COleDateTime(DATE date);
    COleDateTime(int year, int month, int day, int hour, int minute, int second);
    explicit COleDateTime(const SYSTEMTIME& fields);
    /// Local time of a UTC count.
    explicit COleDateTime(const FILETIME& time);
    /// Local time of seconds since 1970.
    explicit COleDateTime(std::int64_t time);

    /// Local time.
    static COleDateTime GetCurrentTime();

    DateTimeStatus GetStatus() const { return m_status; }
    void SetStatus(DateTimeStatus status) { m_status = status; }

    int GetYear() const;
    int GetMonth() const;
    int GetDay() const;
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;
    /// 1 is Sunday.
    int GetDayOfWeek() const;

    /// False, and `fields` keeps its preset, unless the status is valid.
    [[nodiscard]] bool GetAsSystemTime(SYSTEMTIME& fields) const;

    /// These set value and status, and tell whether it is valid.
    bool SetDateTime(int year, int month, int day, int hour, int minute, int second);
    bool SetDate(int year, int month, int day);
    bool SetTime(int hour, int minute, int second);
    /// Reads the user's form, see platform/system/Locale.h.
    bool ParseDateTime(const CString& text);

    /// By the marks of TimeText.h; "" for null, "Invalid DateTime" for invalid.
    CString Format(const char16_t* format) const;
    /// In the user's form.
    CString Format() const;

    operator DATE() const { return m_dt; }

    /// Both valid and the same count, or both of the same other status.
    bool operator==(const COleDateTime& other) const;
    bool operator<(const COleDateTime& other) const;
    bool operator>(const COleDateTime& other) const { return other < *this; }
    COleDateTimeSpan operator-(const COleDateTime& other) const;
    COleDateTime operator+(const COleDateTimeSpan& span) const;
    COleDateTime operator-(const COleDateTimeSpan& span) const;

    DATE m_dt = 0;
    DateTimeStatus m_status = valid;

private:
    bool SetFields(const SYSTEMTIME& fields);
    int GetPart(WORD SYSTEMTIME::*part) const;
};

} // namespace utility
