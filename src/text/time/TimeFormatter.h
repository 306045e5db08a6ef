#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/time/OleDateTime.h"

namespace utility
{

struct VARIANT;

/// A time as text in the user's form. What cannot be shown gives "Invalid DateTime".
class UTILITY_CORE_API CTimeFormatter
{
public:
    /// Now.
    CTimeFormatter();
    /// A UTC time, shown in the user's zone.
    explicit CTimeFormatter(const FILETIME& time);
    /// Fields as they stand.
    explicit CTimeFormatter(const SYSTEMTIME& fields);
    /// Invalid unless the kind is a date.
    explicit CTimeFormatter(const VARIANT& value);
    explicit CTimeFormatter(const COleDateTime& time);
    CTimeFormatter(int year, int month, int day, int hour, int minute, int second);
    /// A day count.
    explicit CTimeFormatter(double date);
    /// Seconds since 1970, shown in the user's zone.
    explicit CTimeFormatter(std::int64_t time);
    /// A `FILETIME` count in UTC if so said, else as above.
    CTimeFormatter(std::int64_t value, bool isFileTime);

    /// By the marks of platform/base/time/TimeText.h.
    CString Format(const char16_t* format) const;
    /// By a format of the table of texts; an id that it lacks gives "".
    CString Format(unsigned int stringId) const;
    /// In the form of the user's locale, by flags of the date (0 all, 1 without date, 2 without
    /// time) and a language.
    CString Format(std::uint32_t flags, std::uint32_t language) const;

    /// "31-12-2024", "23:59:58" and both with a blank between.
    CString GetDefaultDateString() const;
    CString GetDefaultTimeString() const;
    CString GetDefaultDateTimeString() const;

private:
    COleDateTime m_Time;
};

} // namespace utility
