#include "platform/base/time/TimeText.h"

#include <chrono>

namespace utility
{

namespace
{

constexpr const char16_t* MONTH_NAMES[] = {u"January",   u"February", u"March",    u"April",
                                           u"May",       u"June",     u"July",     u"August",
                                           u"September", u"October",  u"November", u"December"};
constexpr const char16_t* DAY_NAMES[] = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                         u"Thursday", u"Friday", u"Saturday"};

std::chrono::sys_days DayOf(const SYSTEMTIME& fields)
{
    return std::chrono::year{fields.wYear} / fields.wMonth / fields.wDay;
}

CString DayName(const SYSTEMTIME& fields)
{
    return DAY_NAMES[std::chrono::weekday(DayOf(fields)).c_encoding()];
}

int DayOfYear(const SYSTEMTIME& fields)
{
    const std::chrono::sys_days first = std::chrono::year{fields.wYear} / 1 / 1;
    return static_cast<int>((DayOf(fields) - first).count()) + 1;
}

CString Number(const char16_t* format, int value)
{
    CString text;
    text.Format(format, value);
    return text;
}

/// The text of one mark; empty for an unknown one.
CString MarkText(char16_t mark, const SYSTEMTIME& fields)
{
    switch (mark)
    {
    case u'Y':
        return Number(u"%04d", fields.wYear);
    case u'y':
        return Number(u"%02d", fields.wYear % 100);
    case u'm':
        return Number(u"%02d", fields.wMonth);
    case u'b':
        return CString(GetMonthName(fields.wMonth)).Left(3);
    case u'B':
        return GetMonthName(fields.wMonth);
    case u'd':
        return Number(u"%02d", fields.wDay);
    case u'j':
        return Number(u"%03d", DayOfYear(fields));
    case u'a':
        return DayName(fields).Left(3);
    case u'A':
        return DayName(fields);
    case u'H':
        return Number(u"%02d", fields.wHour);
    case u'I':
        return Number(u"%02d", (fields.wHour + 11) % 12 + 1);
    case u'p':
        return fields.wHour < 12 ? u"AM" : u"PM";
    case u'M':
        return Number(u"%02d", fields.wMinute);
    case u'S':
        return Number(u"%02d", fields.wSecond);
    case u'%':
        return u"%";
    default:
        return CString();
    }
}

} // namespace

CString FormatTimeText(const char16_t* format, const SYSTEMTIME& fields)
{
    CString text;
    for (const char16_t* unit = format; *unit; ++unit)
    {
        if (*unit != u'%' || unit[1] == 0)
        {
            text += *unit;
            continue;
        }
        ++unit;
        const CString part = MarkText(*unit, fields);
        if (part.IsEmpty())
            text += u'%';
        text += part.IsEmpty() ? CString(*unit) : part;
    }
    return text;
}

const char16_t* GetMonthName(int month)
{
    return month >= 1 && month <= 12 ? MONTH_NAMES[month - 1] : u"";
}

} // namespace utility
