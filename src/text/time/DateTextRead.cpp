#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "text/time/DateText.h"
#include "text/time/TimeConversion.h"

#include <algorithm>
#include <chrono>

namespace utility
{

namespace
{

/// Takes the pieces of a text one after the other, as the scanning forms of the C library do.
class CScanner
{
public:
    explicit CScanner(std::u16string_view text) : m_Text(text) {}

    /// Blanks, a sign and digits; what is larger than any field counts as just that.
    bool ReadNumber(int& number);
    /// Any one unit.
    bool SkipUnit();
    /// Blanks; false if nothing is left behind them.
    bool SkipBlanks();

private:
    char16_t Unit() const { return m_Index < m_Text.size() ? m_Text[m_Index] : u'\0'; }

    std::u16string_view m_Text;
    std::size_t m_Index = 0;
};

bool CScanner::ReadNumber(int& number)
{
    constexpr int TOO_LARGE = 100'000;
    SkipBlanks();
    const bool isNegative = Unit() == u'-';
    if (isNegative || Unit() == u'+')
        ++m_Index;
    if (!IsDigit(Unit()))
        return false;

    int value = 0;
    for (; IsDigit(Unit()); ++m_Index)
        value = std::min(value * 10 + (Unit() - u'0'), TOO_LARGE);
    number = isNegative ? -value : value;
    return true;
}

bool CScanner::SkipUnit()
{
    if (m_Index == m_Text.size())
        return false;

    ++m_Index;
    return true;
}

bool CScanner::SkipBlanks()
{
    while (IsSpace(Unit()))
        ++m_Index;
    return m_Index < m_Text.size();
}

/// The date and time of a text, not yet known to exist.
struct CReadDate
{
    int m_Date[3]; // in the order of the text
    int m_Time[3];
    int m_Milliseconds;
};

/// Three numbers with one unit between each two.
bool ReadTriple(CScanner& scanner, int (&numbers)[3])
{
    return scanner.ReadNumber(numbers[0]) && scanner.SkipUnit() && scanner.ReadNumber(numbers[1]) &&
           scanner.SkipUnit() && scanner.ReadNumber(numbers[2]);
}

bool ReadText(const CString& text, CReadDate& read)
{
    CScanner scanner(text.View());
    if (!ReadTriple(scanner, read.m_Date) || !ReadTriple(scanner, read.m_Time))
        return false;

    read.m_Milliseconds = 0;
    const bool hasRest = scanner.SkipUnit() && scanner.SkipBlanks();
    return !hasRest || scanner.ReadNumber(read.m_Milliseconds);
}

/// Where the letter stands in the order; -1 unless the order is D, M and Y, each once.
int FindInOrder(std::u16string_view order, char16_t letter)
{
    int found = -1;
    for (std::size_t i = 0; i < order.size(); ++i)
    {
        if (ToUpper(order[i]) != letter)
            continue;
        if (found >= 0)
            return -1;
        found = static_cast<int>(i);
    }
    return order.size() == 3 ? found : -1;
}

bool IsWithin(int value, int low, int high)
{
    return value >= low && value <= high;
}

bool DoesExist(int year, int month, int day, const CReadDate& read)
{
    return IsWithin(year, 1, 9999) && IsWithin(month, 1, 12) && IsWithin(day, 1, 31) &&
           (std::chrono::year{year} / month / day).ok() && IsWithin(read.m_Time[0], 0, 23) &&
           IsWithin(read.m_Time[1], 0, 59) && IsWithin(read.m_Time[2], 0, 59) &&
           IsWithin(read.m_Milliseconds, 0, 999);
}

bool ReadDateTime(const CString& text, const CString& order, SYSTEMTIME& fields)
{
    const CString used = order.IsEmpty() ? GetDefaultDateOrder() : order;
    const int dayAt = FindInOrder(used.View(), u'D');
    const int monthAt = FindInOrder(used.View(), u'M');
    const int yearAt = FindInOrder(used.View(), u'Y');
    CReadDate read{};
    if (dayAt < 0 || monthAt < 0 || yearAt < 0 || !ReadText(text, read))
        return false;

    const int day = read.m_Date[dayAt];
    const int month = read.m_Date[monthAt];
    const int year = read.m_Date[yearAt];
    if (!DoesExist(year, month, day, read))
        return false;

    fields = {static_cast<WORD>(year),
              static_cast<WORD>(month),
              0,
              static_cast<WORD>(day),
              static_cast<WORD>(read.m_Time[0]),
              static_cast<WORD>(read.m_Time[1]),
              static_cast<WORD>(read.m_Time[2]),
              static_cast<WORD>(read.m_Milliseconds)};
    return true;
}

} // namespace

bool ConvertDateTimeStringToFileTime(const CString& text, FILETIME& time, const CString& order)
{
    SYSTEMTIME fields{};
    return ReadDateTime(text, order, fields) && SystemTimeToFileTime(fields, time);
}

bool ConvertDateTimeStringToI64(const CString& text, std::int64_t& count, const CString& order)
{
    FILETIME time{};
    if (!ConvertDateTimeStringToFileTime(text, time, order))
        return false;

    count = FileTimeToCount(time);
    return true;
}

bool ConvertDateTimeStringToTimeStampStruct(const CString& text, TIMESTAMP_STRUCT& stamp,
                                            const CString& order)
{
    SYSTEMTIME fields{};
    if (!ReadDateTime(text, order, fields))
        return false;

    stamp = ConvertSystemTimeToTimeStampStruct(fields);
    return true;
}

} // namespace utility
