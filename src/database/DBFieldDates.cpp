#include "database/DBFieldDates.h"

#include "platform/system/Locale.h"
#include "text/time/DateText.h"

namespace utility
{

TIMESTAMP_STRUCT TimestampOf(const COleDateTime& date)
{
    const auto part = [](int value)
    {
        return static_cast<std::uint16_t>(value);
    };
    return {static_cast<std::int16_t>(date.GetYear()),
            part(date.GetMonth()),
            part(date.GetDay()),
            part(date.GetHour()),
            part(date.GetMinute()),
            part(date.GetSecond()),
            0};
}

COleDateTime DateOf(const TIMESTAMP_STRUCT& time)
{
    return COleDateTime(time.year, time.month, time.day, time.hour, time.minute, time.second);
}

TIMESTAMP_STRUCT ReadTimestamp(const CString& text, bool databaseForm)
{
    if (!databaseForm)
        return TimestampOf(ReadDate(text));
    TIMESTAMP_STRUCT result{};
    if (ConvertDateTimeStringToTimeStampStruct(text, result, u"YMD"))
        return result;
    COleDateTime unreadable;
    unreadable.SetStatus(COleDateTime::invalid);
    return TimestampOf(unreadable);
}

COleDateTime ReadDate(const CString& text)
{
    DATE days = 0;
    const HRESULT code = VarDateFromStr(text, days);
    if (code == S_OK)
        return COleDateTime(days);
    COleDateTime result(code == DISP_E_TYPEMISMATCH ? 0.0 : -1.0);
    result.SetStatus(COleDateTime::invalid);
    return result;
}

CString LocaleDateText(const COleDateTime& date)
{
    CString text;
    if (date.GetStatus() != COleDateTime::valid || VarBstrFromDate(date.m_dt, text) != S_OK)
        text = u"Invalid DateTime";
    return text;
}

} // namespace utility
