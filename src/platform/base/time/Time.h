#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/time/SystemTime.h"

#include <compare>
#include <ctime>

namespace utility
{

/// A difference of two times in whole seconds.
class UTILITY_CORE_API CTimeSpan
{
public:
    constexpr CTimeSpan() = default;
    explicit constexpr CTimeSpan(std::int64_t seconds) : m_Seconds(seconds) {}
    constexpr CTimeSpan(int days, int hours, int minutes, int seconds)
        : m_Seconds(((std::int64_t{days} * 24 + hours) * 60 + minutes) * 60 + seconds)
    {
    }

    constexpr std::int64_t GetDays() const { return m_Seconds / 86400; }
    constexpr std::int64_t GetTotalHours() const { return m_Seconds / 3600; }
    constexpr std::int64_t GetTotalMinutes() const { return m_Seconds / 60; }
    constexpr std::int64_t GetTotalSeconds() const { return m_Seconds; }
    // What is left beside the next greater unit; with the sign of the whole
    constexpr int GetHours() const { return static_cast<int>(m_Seconds / 3600 % 24); }
    constexpr int GetMinutes() const { return static_cast<int>(m_Seconds / 60 % 60); }
    constexpr int GetSeconds() const { return static_cast<int>(m_Seconds % 60); }

    constexpr auto operator<=>(const CTimeSpan&) const = default;
    constexpr CTimeSpan operator+(CTimeSpan other) const
    {
        return CTimeSpan(m_Seconds + other.m_Seconds);
    }
    constexpr CTimeSpan operator-(CTimeSpan other) const
    {
        return CTimeSpan(m_Seconds - other.m_Seconds);
    }

private:
    std::int64_t m_Seconds = 0;
};

/// A point in time in whole seconds since 1 January 1970 UTC, shown in the user's zone.
///
/// From fields that are no date in 1970 or later, the constructors raise `COleException` with
/// `E_FAIL`.
class UTILITY_CORE_API CTime
{
public:
    constexpr CTime() = default;
    explicit constexpr CTime(std::int64_t time) : m_Time(time) {}
    /// Local fields.
    CTime(int year, int month, int day, int hour, int minute, int second);
    explicit CTime(const SYSTEMTIME& local);
    explicit CTime(const FILETIME& time);

    static CTime GetCurrentTime();

    constexpr std::int64_t GetTime() const { return m_Time; }

    /// The local fields; false, and `local` keeps its preset, if the year fits none.
    bool GetLocalTm(std::tm& local) const;
    bool GetAsSystemTime(SYSTEMTIME& local) const;

    // Local fields; -1 where GetLocalTm fails
    int GetYear() const;
    int GetMonth() const;
    int GetDay() const;
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;
    /// 1 is Sunday.
    int GetDayOfWeek() const;

    /// Local time by the marks of TimeText.h; empty if it cannot be shown.
    CString Format(const char16_t* format) const;

    constexpr auto operator<=>(const CTime&) const = default;
    constexpr CTimeSpan operator-(CTime other) const { return CTimeSpan(m_Time - other.m_Time); }
    constexpr CTime operator+(CTimeSpan span) const
    {
        return CTime(m_Time + span.GetTotalSeconds());
    }
    constexpr CTime operator-(CTimeSpan span) const
    {
        return CTime(m_Time - span.GetTotalSeconds());
    }

private:
    std::int64_t m_Time = 0;
};

} // namespace utility
