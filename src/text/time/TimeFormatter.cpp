#include "text/time/TimeFormatter.h"

#include "platform/base/time/Variant.h"
#include "platform/system/Locale.h"

namespace utility
{

namespace
{

// Which half of a date and time the locale's form shows.
constexpr std::uint32_t TIME_VALUE_ONLY = 1;
constexpr std::uint32_t DATE_VALUE_ONLY = 2;

COleDateTime FromVariant(const VARIANT& value)
{
    if (value.vt == VT_DATE)
        return COleDateTime(value.date);

    COleDateTime invalid;
    invalid.SetStatus(COleDateTime::invalid);
    return invalid;
}

} // namespace

CTimeFormatter::CTimeFormatter() : m_Time(COleDateTime::GetCurrentTime()) {}

CTimeFormatter::CTimeFormatter(const FILETIME& time) : m_Time(time) {}

CTimeFormatter::CTimeFormatter(const SYSTEMTIME& fields) : m_Time(fields) {}

CTimeFormatter::CTimeFormatter(const VARIANT& value) : m_Time(FromVariant(value)) {}

CTimeFormatter::CTimeFormatter(const COleDateTime& time) : m_Time(time) {}

CTimeFormatter::CTimeFormatter(int year, int month, int day, int hour, int minute, int second)
    : m_Time(year, month, day, hour, minute, second)
{
}

CTimeFormatter::CTimeFormatter(double date) : m_Time(date) {}

CTimeFormatter::CTimeFormatter(std::int64_t time) : m_Time(time) {}

CTimeFormatter::CTimeFormatter(std::int64_t value, bool isFileTime)
    : m_Time(isFileTime ? COleDateTime(CountToFileTime(value)) : COleDateTime(value))
{
}

CString CTimeFormatter::Format(const char16_t* format) const
{
    return m_Time.Format(format);
}

CString CTimeFormatter::Format(unsigned int stringId) const
{
    CString format;
    return format.LoadString(stringId) ? m_Time.Format(format) : CString();
}

CString CTimeFormatter::Format(std::uint32_t flags, std::uint32_t) const
{
    SYSTEMTIME fields{};
    if (flags == TIME_VALUE_ONLY)
        return m_Time.Format(u"%H:%M:%S");
    if (flags == DATE_VALUE_ONLY && m_Time.GetAsSystemTime(fields))
        return FormatLocaleDay(fields, GetDateCustoms());
    return m_Time.Format();
}

CString CTimeFormatter::GetDefaultDateString() const
{
    return m_Time.Format(u"%d-%m-%Y");
}

CString CTimeFormatter::GetDefaultTimeString() const
{
    return m_Time.Format(u"%H:%M:%S");
}

CString CTimeFormatter::GetDefaultDateTimeString() const
{
    return m_Time.Format(u"%d-%m-%Y %H:%M:%S");
}

} // namespace utility
