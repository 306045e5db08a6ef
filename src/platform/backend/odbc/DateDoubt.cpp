#include "platform/backend/odbc/DateDoubt.h"

#include "platform/db/OdbcTypes.h"

#include <algorithm>
#include <ctime>

namespace utility
{

namespace
{

constexpr TIMESTAMP_STRUCT INFINITE = {9999, 12, 31, 23, 59, 59, 0};
constexpr short MINUS_INFINITE_YEAR = -9999;
constexpr std::size_t MONTH_PLACE = 5; // of "1000-00-00"

std::chrono::month_day DayOf(std::chrono::sys_days day)
{
    const std::chrono::year_month_day date(day);
    return date.month() / date.day();
}

std::chrono::sys_days LocalToday()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return std::chrono::year(local.tm_year + 1900) / (local.tm_mon + 1) / local.tm_mday;
}

} // namespace

CDateDoubt::CDateDoubt(EOddDates oddDates, const CODBCFieldInfo& column)
{
    const bool isDate = column.m_nSQLType == SQL_DATE || column.m_nSQLType == SQL_TIMESTAMP;
    m_MayBeMadeUp = isDate && oddDates == EOddDates::MadeUp;
    m_NullIsAValue =
        isDate && oddDates == EOddDates::ZeroIsNull && column.m_nNullability == SQL_NO_NULLS;
}

void CDateDoubt::NoteToday()
{
    if (!m_MayBeMadeUp)
        return;
    const std::chrono::sys_days today = LocalToday();
    m_Days = {DayOf(today), DayOf(today + std::chrono::days(1))};
}

EDateTrust CDateDoubt::Judge(const TIMESTAMP_STRUCT& date) const
{
    if (!m_MayBeMadeUp)
        return EDateTrust::Sure;
    if (date == INFINITE || date.year == MINUS_INFINITE_YEAR)
        return EDateTrust::None;
    const bool isMidnight = date.hour == 0 && date.minute == 0 && date.second == 0;
    const std::chrono::month_day day = std::chrono::month(date.month) / date.day;
    return isMidnight && std::ranges::find(m_Days, day) != m_Days.end() ? EDateTrust::Doubtful
                                                                        : EDateTrust::Sure;
}

bool CDateDoubt::IsReadable(std::string_view text)
{
    return text.substr(std::min(MONTH_PLACE, text.size()), 2) != "00";
}

} // namespace utility
