#include "platform/base/time/OleDateTimeSpan.h"

#include <cmath>
#include <cstdint>

namespace utility
{

namespace
{

constexpr double SPAN_LIMIT = 3615897; // days from 1 January 100 to 31 December 9999, less one

/// The span of the nearest second.
std::int64_t Seconds(double days)
{
    return std::llround(days * 86400);
}

} // namespace

COleDateTimeSpan::COleDateTimeSpan(double days) : m_span(days)
{
    m_status = std::fabs(days) <= SPAN_LIMIT ? valid : invalid; // no number is invalid too
}

COleDateTimeSpan::COleDateTimeSpan(int days, int hours, int minutes, int seconds)
    : COleDateTimeSpan(days + ((hours * 60.0 + minutes) * 60.0 + seconds) / 86400)
{
}

int COleDateTimeSpan::GetDays() const
{
    return static_cast<int>(Seconds(m_span) / 86400);
}

int COleDateTimeSpan::GetHours() const
{
    return static_cast<int>(Seconds(m_span) / 3600 % 24);
}

int COleDateTimeSpan::GetMinutes() const
{
    return static_cast<int>(Seconds(m_span) / 60 % 60);
}

int COleDateTimeSpan::GetSeconds() const
{
    return static_cast<int>(Seconds(m_span) % 60);
}

COleDateTimeSpan COleDateTimeSpan::operator+(const COleDateTimeSpan& other) const
{
    COleDateTimeSpan sum(m_span + other.m_span);
    if (m_status == null || other.m_status == null)
        sum.m_status = null;
    else if (m_status == invalid || other.m_status == invalid)
        sum.m_status = invalid;
    return sum;
}

COleDateTimeSpan COleDateTimeSpan::operator-(const COleDateTimeSpan& other) const
{
    COleDateTimeSpan opposite = other;
    opposite.m_span = -other.m_span;
    return *this + opposite;
}

} // namespace utility
