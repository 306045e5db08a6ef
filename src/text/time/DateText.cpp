#include "text/time/DateText.h"

#include "platform/base/time/TimeText.h"
#include "platform/system/Clock.h"
#include "text/time/TimeConversion.h"

namespace utility
{

namespace
{

struct CDateDefaults
{
    CString m_Pattern = u"%1!02d!-%2!02d!-%3!04d!";
    CString m_Order = u"DMY";
};

CDateDefaults& GetDefaults()
{
    static CDateDefaults defaults;
    return defaults;
}

/// The pattern's year field is one of two digits, as "%3!02d!".
bool HasShortYear(const CString& pattern)
{
    constexpr int DIGITS_BEHIND = 4;
    const int year = pattern.Find(u"%3");
    return year >= 0 && year + DIGITS_BEHIND < pattern.GetLength() &&
           pattern[year + DIGITS_BEHIND] == u'2';
}

} // namespace

CString GetDefaultDatePattern()
{
    return GetDefaults().m_Pattern;
}

void SetDefaultDatePattern(const CString& pattern)
{
    GetDefaults().m_Pattern = pattern;
}

CString GetDefaultDateOrder()
{
    return GetDefaults().m_Order;
}

void SetDefaultDateOrder(const CString& order)
{
    GetDefaults().m_Order = order;
}

const char16_t* GetTimePattern()
{
    return u" %4!02d!:%5!02d!:%6!02d!.%7!03d!";
}

CString ConvertFileTimeToPgDateString(const FILETIME& time)
{
    return ConvertI64TimeStampToPgDateString(FileTimeToCount(time));
}

CString ConvertI64TimeStampToPgDateString(std::int64_t count)
{
    return ConvertSystemTimeToPgDateString(ConvertInt64ToSystemTime(count));
}

CString ConvertSystemTimeToPgDateString(const SYSTEMTIME& fields)
{
    CString text;
    text.Format(u"%04d-%02d-%02d %02d:%02d:%02d.%03d", fields.wYear, fields.wMonth, fields.wDay,
                fields.wHour, fields.wMinute, fields.wSecond, fields.wMilliseconds);
    return text;
}

CString ConvertTimeStampStructToPgDateString(const TIMESTAMP_STRUCT& stamp)
{
    return ConvertSystemTimeToPgDateString(ConvertTimeStampStructToSystemTime(stamp));
}

CString ConvertI64TimeStampToPgFunctionString(std::int64_t count)
{
    return ConvertTimeStampStructToPgFunctionString(ConvertInt64ToTimeStampStruct(count));
}

CString ConvertTimeStampStructToPgFunctionString(const TIMESTAMP_STRUCT& stamp)
{
    CString text;
    text.Format(u"to_timestamp('%s', 'YYYY-MM-DD%s')", ConvertTimeStampStructToPgDateString(stamp),
                u" HH24:MI:SS.MS");
    return text;
}

CString ConvertFileTimeToMvtDateString(const FILETIME& time, bool toLocal, const CString& pattern)
{
    return ConvertI64TimeStampToMvtDateString(FileTimeToCount(time), toLocal, pattern);
}

CString ConvertI64TimeStampToMvtDateString(std::int64_t count, bool toLocal, const CString& pattern)
{
    const SYSTEMTIME utc = ConvertInt64ToSystemTime(count);
    SYSTEMTIME shown = utc;
    if (toLocal && !SystemTimeToTzSpecificLocalTime(utc, shown))
        shown = utc;
    return ConvertSystemTimeToMvtDateString(shown, pattern);
}

CString ConvertSystemTimeToMvtDateString(const SYSTEMTIME& fields, const CString& pattern)
{
    const CString used = pattern.IsEmpty() ? GetDefaultDatePattern() : pattern;
    const int year = HasShortYear(used) ? fields.wYear % 100 : fields.wYear;
    CString text;
    text.FormatMessage(used, fields.wDay, fields.wMonth, year, fields.wHour, fields.wMinute,
                       fields.wSecond, fields.wMilliseconds);
    return text;
}

CString GetCurrentSystemDate()
{
    return FormatTimeText(u"%d-%m-%Y", GetLocalTime());
}

CString GetCurrentSystemTime()
{
    return FormatTimeText(u"%H:%M:%S", GetLocalTime());
}

} // namespace utility
