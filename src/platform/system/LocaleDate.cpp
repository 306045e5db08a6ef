#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "platform/base/time/TimeText.h"
#include "platform/system/Locale.h"

#include <optional>

namespace utility
{

namespace
{

/// A number of a date, with the digits it was written with.
struct CDateNumber
{
    int m_Value;
    int m_Digits;
};

/// Puts together what stands in the text, piece by piece; a piece that does not fit ends the
/// reading.
class CDateReader
{
public:
    CDateReader(std::u16string_view text, const CDateCustoms& customs)
        : m_Text(text),
          m_Customs(customs)
    {
    }

    bool Read(SYSTEMTIME& fields);

private:
    char16_t Unit() const { return m_Index < m_Text.size() ? m_Text[m_Index] : u'\0'; }
    bool ReadPiece();
    bool ReadNumber(CDateNumber& number);
    bool ReadNumberPiece();
    bool ReadTime(int hour);
    bool ReadTimePart(int& part);
    bool ReadWord();
    bool SetMonth(std::u16string_view word);
    bool SetHalfDay(std::u16string_view word);
    bool PlaceNumbers();
    char16_t OrderAt(int index) const;

    std::u16string_view m_Text;
    std::size_t m_Index = 0;
    const CDateCustoms& m_Customs;
    std::array<CDateNumber, 3> m_Numbers{};
    int m_Count = 0;
    int m_Month = 0; // from a name
    bool m_HasTime = false;
    bool m_HasHalfDay = false;
    SYSTEMTIME m_Fields{1899, 12, 0, 30, 0, 0, 0, 0};
};

bool CDateReader::Read(SYSTEMTIME& fields)
{
    while (m_Index < m_Text.size())
    {
        if (!ReadPiece())
            return false;
    }
    const bool isTimeAlone = m_HasTime && m_Count == 0 && m_Month == 0;
    if (!isTimeAlone && !PlaceNumbers())
        return false;

    fields = m_Fields;
    return true;
}

bool CDateReader::ReadPiece()
{
    const char16_t unit = Unit();
    if (IsDigit(unit))
        return ReadNumberPiece();
    if (IsAlpha(unit) || unit >= 0x80)
        return ReadWord();

    ++m_Index;
    return IsSpace(unit) || unit == m_Customs.m_Separator || unit == u'-' || unit == u'/' ||
           unit == u'.' || unit == u',';
}

bool CDateReader::ReadNumber(CDateNumber& number)
{
    number = {0, 0};
    for (; IsDigit(Unit()) && number.m_Digits <= 4; ++m_Index, ++number.m_Digits)
        number.m_Value = number.m_Value * 10 + (Unit() - u'0');
    return number.m_Digits >= 1 && number.m_Digits <= 4;
}

bool CDateReader::ReadNumberPiece()
{
    CDateNumber number{};
    if (!ReadNumber(number))
        return false;
    if (Unit() == u':')
        return ReadTime(number.m_Value);
    if (m_Count == 3)
        return false;

    m_Numbers[static_cast<std::size_t>(m_Count++)] = number;
    return true;
}

/// Hours are read; minutes, and if they are there seconds with a fraction that is dropped.
bool CDateReader::ReadTime(int hour)
{
    int minute = 0;
    int second = 0;
    if (m_HasTime || !ReadTimePart(minute) || (Unit() == u':' && !ReadTimePart(second)))
        return false;

    if (Unit() == u'.' || Unit() == u',')
    {
        ++m_Index;
        while (IsDigit(Unit()))
            ++m_Index;
    }
    m_Fields.wHour = static_cast<WORD>(hour);
    m_Fields.wMinute = static_cast<WORD>(minute);
    m_Fields.wSecond = static_cast<WORD>(second);
    m_HasTime = true;
    return true;
}

bool CDateReader::ReadTimePart(int& part)
{
    ++m_Index; // the colon
    CDateNumber number{};
    if (!ReadNumber(number))
        return false;

    part = number.m_Value;
    return true;
}

bool CDateReader::ReadWord()
{
    const std::size_t start = m_Index;
    while (IsAlpha(Unit()) || Unit() >= 0x80)
        ++m_Index;
    const std::u16string_view word = m_Text.substr(start, m_Index - start);

    const bool isIsoMark = word.size() == 1 && word[0] == u'T' && m_Count == 3 && IsDigit(Unit());
    return isIsoMark || SetHalfDay(word) || SetMonth(word);
}

bool CDateReader::SetMonth(std::u16string_view word)
{
    constexpr std::size_t SHORTEST = 3;
    if (m_Month != 0)
        return false;

    for (std::size_t i = 0; i < 12; ++i)
    {
        const std::u16string_view english = GetMonthName(static_cast<int>(i) + 1);
        CString shortName = m_Customs.m_ShortMonths[i];
        if ((word.size() >= SHORTEST && EqualNoCase(english.substr(0, word.size()), word)) ||
            EqualNoCase(m_Customs.m_Months[i].View(), word) ||
            EqualNoCase(shortName.TrimRight(u'.').View(), word))
            m_Month = static_cast<int>(i) + 1;
    }
    return m_Month != 0;
}

bool CDateReader::SetHalfDay(std::u16string_view word)
{
    const bool isAfternoon = EqualNoCase(word, u"PM");
    if (!m_HasTime || m_HasHalfDay || (!isAfternoon && !EqualNoCase(word, u"AM")) ||
        m_Fields.wHour < 1 || m_Fields.wHour > 12)
        return false;

    m_Fields.wHour = static_cast<WORD>(m_Fields.wHour % 12 + (isAfternoon ? 12 : 0));
    m_HasHalfDay = true;
    return true;
}

/// What the number at that place means. A first number of three digits or more is the year, of an
/// ISO date unless the customs too begin with it.
char16_t CDateReader::OrderAt(int index) const
{
    std::u16string_view order(m_Customs.m_Order.data(), m_Customs.m_Order.size());
    if (m_Numbers[0].m_Digits > 2 && order[0] != u'Y')
        order = u"YMD";
    if (m_Month == 0)
        return order[static_cast<std::size_t>(index)];

    // The month has a name: two numbers are left. The longer one is the year, else the customs
    // tell.
    const bool isYearFirst = m_Numbers[1].m_Digits <= 2 && order.find(u'Y') < order.find(u'D');
    return (index == 0) == isYearFirst ? u'Y' : u'D';
}

bool CDateReader::PlaceNumbers()
{
    if (m_Count != (m_Month == 0 ? 3 : 2))
        return false;

    m_Fields.wMonth = static_cast<WORD>(m_Month);
    for (int i = 0; i < m_Count; ++i)
    {
        const CDateNumber& number = m_Numbers[static_cast<std::size_t>(i)];
        const char16_t part = OrderAt(i);
        if (part == u'D')
            m_Fields.wDay = static_cast<WORD>(number.m_Value);
        else if (part == u'M')
            m_Fields.wMonth = static_cast<WORD>(number.m_Value);
        else
            m_Fields.wYear = static_cast<WORD>(
                number.m_Value + (number.m_Digits > 2 ? 0 : (number.m_Value < 30 ? 2000 : 1900)));
    }
    return true;
}

} // namespace

HRESULT ReadLocaleDate(const CString& text, const CDateCustoms& customs, DATE& date)
{
    SYSTEMTIME fields{};
    CDateReader reader(text.View(), customs);
    if (!reader.Read(fields) || !SystemTimeToVariantTime(fields, date))
        return DISP_E_TYPEMISMATCH;
    return S_OK;
}

CString FormatLocaleDay(const SYSTEMTIME& fields, const CDateCustoms& customs)
{
    CString text;
    for (const char16_t part : customs.m_Order)
    {
        if (!text.IsEmpty())
            text += customs.m_Separator;
        if (part == u'Y')
            text.AppendFormat(u"%04d", fields.wYear);
        else
            text.AppendFormat(u"%02d", part == u'D' ? fields.wDay : fields.wMonth);
    }
    return text;
}

HRESULT FormatLocaleDate(DATE date, const CDateCustoms& customs, CString& text)
{
    SYSTEMTIME fields{};
    if (!VariantTimeToSystemTime(date, fields))
        return E_FAIL;

    const bool isDayZero = fields.wYear == 1899 && fields.wMonth == 12 && fields.wDay == 30;
    const bool isMidnight = fields.wHour == 0 && fields.wMinute == 0 && fields.wSecond == 0;
    CString shown = isDayZero ? CString() : FormatLocaleDay(fields, customs);
    if (isDayZero || !isMidnight)
        shown += FormatTimeText(isDayZero ? u"%H:%M:%S" : u" %H:%M:%S", fields);
    text = shown;
    return S_OK;
}

HRESULT VarDateFromStr(const CString& text, DATE& date)
{
    return ReadLocaleDate(text, GetDateCustoms(), date);
}

HRESULT VarBstrFromDate(DATE date, CString& text)
{
    return FormatLocaleDate(date, GetDateCustoms(), text);
}

} // namespace utility
