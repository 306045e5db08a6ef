#pragma once

#include "platform/base/Export.h"

namespace utility
{

/// A difference of two dates in days, with a status; beyond 3615897 days either way it is invalid.
class UTILITY_CORE_API COleDateTimeSpan
{
public:
    enum DateTimeSpanStatus
    {
        valid = 0,
        invalid = 1,
        null = 2
    };

    constexpr COleDateTimeSpan() = default;
    explicit COleDateTimeSpan(double days);
    COleDateTimeSpan(int days, int hours, int minutes, int seconds);

    DateTimeSpanStatus GetStatus() const { return m_status; }
    void SetStatus(DateTimeSpanStatus status) { m_status = status; }

    double GetTotalDays() const { return m_span; }
    double GetTotalHours() const { return m_span * 24; }
    double GetTotalMinutes() const { return m_span * (24 * 60); }
    double GetTotalSeconds() const { return m_span * (24 * 60 * 60); }
    // What is left beside the next greater unit, of the nearest second; with the sign of the whole
    int GetDays() const;
    int GetHours() const;
    int GetMinutes() const;
    int GetSeconds() const;

    COleDateTimeSpan operator+(const COleDateTimeSpan& other) const;
    COleDateTimeSpan operator-(const COleDateTimeSpan& other) const;
    bool operator==(const COleDateTimeSpan&) const = default;
    bool operator<(const COleDateTimeSpan& other) const { return m_span < other.m_span; }

    double m_span = 0;
    DateTimeSpanStatus m_status = valid;
};

} // namespace utility
