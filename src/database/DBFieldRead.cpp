#include "database/DBField.h"
#include "database/DBFieldDates.h"
#include "database/NumberRange.h"
#include "platform/base/GlobalMemory.h"
#include "platform/base/NumberText.h"
#include "platform/db/LongBinary.h"
#include "text/time/DateText.h"
#include "text/time/TimeConversion.h"

namespace utility
{

namespace
{

constexpr unsigned char BLANK = ' '; // what has no character

bool IsTrueLetter(char16_t letter)
{
    return letter == u'T' || letter == u'1';
}

template <typename TValue>
CString FormatValue(const char16_t* format, TValue value)
{
    CString text;
    text.Format(format, value);
    return text;
}

} // namespace

bool CDBField::AsBool() const
{
    if (IsEmptyValue())
        return false;
    switch (m_dwType)
    {
    case DBVT_BOOL:
        return m_boolVal == 1;
    case DBVT_UCHAR:
        return IsTrueLetter(m_chVal);
    case DBVT_SHORT:
        return m_iVal != 0;
    case DBVT_LONG:
        return m_lVal != 0;
    case DBVT_SINGLE:
        return m_fltVal != 0;
    case DBVT_DOUBLE:
        return m_dblVal != 0;
    case DBVT_STRING:
        return !m_pstring->IsEmpty() && IsTrueLetter(m_pstring->GetAt(0));
    default:
        return false;
    }
}

unsigned char CDBField::AsChar() const
{
    if (IsEmptyValue())
        return 0;
    switch (m_dwType)
    {
    case DBVT_BOOL:
        return m_boolVal ? 'T' : 'F';
    case DBVT_UCHAR:
        return m_chVal;
    case DBVT_SHORT:
        return static_cast<unsigned char>(m_iVal);
    case DBVT_LONG:
        return static_cast<unsigned char>(m_lVal);
    case DBVT_SINGLE:
        return CutToWhole<unsigned char>(m_fltVal);
    case DBVT_DOUBLE:
        return CutToWhole<unsigned char>(m_dblVal);
    case DBVT_STRING:
        return m_pstring->IsEmpty() ? BLANK : static_cast<unsigned char>(m_pstring->GetAt(0));
    case DBVT_DATE:
    case DBVT_BINARY:
        return BLANK;
    default:
        return 0;
    }
}

short CDBField::AsShort() const
{
    if (IsEmptyValue())
        return 0;
    switch (m_dwType)
    {
    case DBVT_SINGLE:
        return CutToWhole<short>(m_fltVal);
    case DBVT_DOUBLE:
        return CutToWhole<short>(m_dblVal);
    case DBVT_STRING:
        return static_cast<short>(_wtoi(*m_pstring));
    default:
        return static_cast<short>(ReadWhole());
    }
}

std::int32_t CDBField::AsLong() const
{
    if (IsEmptyValue())
        return 0;
    switch (m_dwType)
    {
    case DBVT_SINGLE:
        return CutToWhole<std::int32_t>(m_fltVal);
    case DBVT_DOUBLE:
        return CutToWhole<std::int32_t>(m_dblVal);
    case DBVT_STRING:
        return _wtol(*m_pstring);
    default:
        return static_cast<std::int32_t>(ReadWhole());
    }
}

std::int64_t CDBField::AsInt64() const
{
    if (IsEmptyValue())
        return 0;
    switch (m_dwType)
    {
    case DBVT_SINGLE:
        return CutToWhole<std::int64_t>(m_fltVal);
    case DBVT_DOUBLE:
        return CutToWhole<std::int64_t>(m_dblVal);
    case DBVT_STRING:
        return _wtoi64(*m_pstring);
    case DBVT_DATE:
        return ConvertTimeStampStructToInt64(*m_pdate);
    default:
        return ReadWhole();
    }
}

// The whole-number types as they stand; 0 for all others.
std::int64_t CDBField::ReadWhole() const
{
    switch (m_dwType)
    {
    case DBVT_BOOL:
        return m_boolVal ? 1 : 0;
    case DBVT_UCHAR:
        return m_chVal;
    case DBVT_SHORT:
        return m_iVal;
    case DBVT_LONG:
        return m_lVal;
    default:
        return 0;
    }
}

double CDBField::ReadReal() const
{
    switch (m_dwType)
    {
    case DBVT_SINGLE:
        return m_fltVal;
    case DBVT_DOUBLE:
        return m_dblVal;
    case DBVT_STRING:
        return _wtof(*m_pstring);
    default:
        return static_cast<double>(ReadWhole());
    }
}

float CDBField::AsFloat() const
{
    return IsEmptyValue() ? 0 : NarrowToFloat(ReadReal());
}

double CDBField::AsDouble() const
{
    return IsEmptyValue() ? 0 : ReadReal();
}

COleDateTime CDBField::AsDate() const
{
    COleDateTime result;
    result.SetStatus(COleDateTime::null);
    if (IsEmptyValue())
        return result;
    switch (m_dwType)
    {
    case DBVT_SHORT:
    case DBVT_LONG:
    case DBVT_SINGLE:
    case DBVT_DOUBLE:
        return COleDateTime(AsInt64());
    case DBVT_DATE:
        return DateOf(*m_pdate);
    case DBVT_STRING:
        return ReadDate(*m_pstring);
    case DBVT_BOOL:
    case DBVT_UCHAR:
    case DBVT_BINARY:
        result.SetStatus(COleDateTime::invalid);
        return result;
    default:
        return result;
    }
}

TIMESTAMP_STRUCT CDBField::AsTimeStamp() const
{
    TIMESTAMP_STRUCT result{};
    if (IsEmptyValue())
        return result;
    if (m_dwType == DBVT_DATE)
        return *m_pdate;
    if (m_dwType == DBVT_STRING &&
        !ConvertDateTimeStringToTimeStampStruct(*m_pstring, result, u"YMD"))
        result = TIMESTAMP_STRUCT{};
    return result;
}

CString CDBField::AsString() const
{
    if (IsEmptyValue())
        return CString();
    switch (m_dwType)
    {
    case DBVT_BOOL:
        return m_boolVal ? u"TRUE" : u"FALSE";
    case DBVT_UCHAR:
        // The byte is sign-extended on its way, so codes from 128 up print as ten digits.
        return FormatValue(u"%u", static_cast<unsigned>(static_cast<signed char>(m_chVal)));
    case DBVT_SHORT:
        return FormatValue(u"%hd", static_cast<int>(m_iVal));
    case DBVT_LONG:
        return FormatValue(u"%ld", m_lVal);
    case DBVT_SINGLE:
        return FormatValue(u"%f", static_cast<double>(m_fltVal));
    case DBVT_DOUBLE:
        return FormatValue(u"%g", m_dblVal);
    case DBVT_DATE:
        return DateText();
    case DBVT_STRING:
        return *m_pstring;
    case DBVT_BINARY:
        return BinaryText();
    default:
        return CString();
    }
}

CString CDBField::DateText() const
{
    if (m_DateFormat == DATE_OUTPUT_DATABASE)
        return ConvertTimeStampStructToPgDateString(*m_pdate);
    return LocaleDateText(DateOf(*m_pdate));
}

CString CDBField::BinaryText() const
{
    const auto count = static_cast<int>(m_pbinary->m_dwDataLength);
    CString text(u'\0', count);
    if (const void* bytes = GlobalLock(m_pbinary->m_hData); bytes && count > 0)
    {
        std::memcpy(text.GetBuffer(count), bytes, static_cast<std::size_t>(count));
        text.ReleaseBuffer(count);
        GlobalUnlock(m_pbinary->m_hData);
    }
    return text;
}

} // namespace utility
