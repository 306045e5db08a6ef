#include "database/DBField.h"
#include "database/DBFieldDates.h"
#include "database/NumberRange.h"
#include "platform/base/Encoding.h"
#include "platform/base/NumberText.h"
#include "text/time/TimeConversion.h"

namespace utility
{

namespace
{

template <typename TValue>
CString FormatValue(const char16_t* format, TValue value)
{
    CString text;
    text.Format(format, value);
    return text;
}

} // namespace

// A parameter takes the type of what is assigned, with a fresh value.
void CDBField::TakeParamType(DWORD type)
{
    if (!m_bParam || m_dwType == type)
        return;
    Clear();
    SetType(type);
}

// The common action of all numbers; what differs between them is the type a parameter or a field
// without type takes, and the format of the text.
template <typename TNumber>
void CDBField::AssignNumber(TNumber value, DWORD type, const char16_t* format)
{
    if (m_dwType == DBVT_NULL)
        SetType(type);
    switch (m_dwType)
    {
    case DBVT_BOOL:
        m_boolVal = value != 0;
        break;
    case DBVT_UCHAR:
        m_chVal = ConvertNumber<BYTE>(value);
        break;
    case DBVT_SHORT:
        m_iVal = ConvertNumber<std::int16_t>(value);
        break;
    case DBVT_LONG:
        m_lVal = ConvertNumber<LONG>(value);
        break;
    case DBVT_SINGLE:
        m_fltVal = ConvertNumber<float>(value);
        break;
    case DBVT_DOUBLE:
        m_dblVal = static_cast<double>(value);
        break;
    case DBVT_STRING:
        *m_pstring = FormatValue(format, value);
        break;
    default:
        break;
    }
}

// Truth values and characters: a letter in texts and single characters, `number` elsewhere.
void CDBField::AssignLetter(unsigned char letter, int number, DWORD type)
{
    if (m_dwType == DBVT_NULL)
        SetType(type);
    switch (m_dwType)
    {
    case DBVT_BOOL:
        m_boolVal = letter == 'T' || letter == '1';
        break;
    case DBVT_UCHAR:
        m_chVal = letter;
        break;
    case DBVT_STRING:
        *m_pstring = FormatValue(u"%c", static_cast<char16_t>(letter));
        break;
    default:
        AssignNumber(number, type, u"");
    }
}

CDBField& CDBField::operator=(bool value)
{
    TakeParamType(DBVT_BOOL);
    AssignLetter(value ? 'T' : 'F', value ? 1 : 0, DBVT_BOOL);
    return *this;
}

CDBField& CDBField::operator=(unsigned char value)
{
    TakeParamType(DBVT_UCHAR);
    AssignLetter(value, value, DBVT_UCHAR);
    return *this;
}

CDBField& CDBField::operator=(short value)
{
    TakeParamType(DBVT_LONG);
    AssignNumber(value, DBVT_LONG, u"%hd");
    return *this;
}

CDBField& CDBField::operator=(int value)
{
    TakeParamType(DBVT_LONG);
    AssignNumber(value, DBVT_LONG, u"%ld");
    return *this;
}

CDBField& CDBField::operator=(std::int64_t value)
{
    if (m_dwType == DBVT_DATE)
    {
        *m_pdate = ConvertInt64ToTimeStampStruct(value);
        return *this;
    }
    TakeParamType(DBVT_STRING);
    if (m_dwType == DBVT_NULL)
        m_boolVal = value != 0; // on purpose without a type
    else
        AssignNumber(value, DBVT_STRING, u"%I64d");
    return *this;
}

CDBField& CDBField::operator=(float value)
{
    TakeParamType(DBVT_SINGLE);
    AssignNumber(static_cast<double>(value), DBVT_SINGLE, u"%f");
    return *this;
}

CDBField& CDBField::operator=(double value)
{
    TakeParamType(DBVT_DOUBLE);
    AssignNumber(static_cast<double>(value), DBVT_DOUBLE, u"%f");
    return *this;
}

CDBField& CDBField::operator=(const char16_t* text)
{
    AssignText(CString(text), text != nullptr);
    return *this;
}

CDBField& CDBField::operator=(const CString& text)
{
    AssignText(text, true);
    return *this;
}

void CDBField::AssignText(const CString& text, bool present)
{
    TakeParamType(DBVT_STRING);
    switch (m_dwType)
    {
    case DBVT_NULL:
        SetType(DBVT_ASTRING);
        *m_pstringA = ToUtf8(text.View());
        break;
    case DBVT_BOOL:
        m_boolVal = present;
        break;
    case DBVT_UCHAR:
        m_chVal = text.IsEmpty() ? BYTE{0} : static_cast<BYTE>(text[0]);
        break;
    case DBVT_SHORT:
        m_iVal = static_cast<std::int16_t>(_wtoi(text));
        break;
    case DBVT_LONG:
        m_lVal = _wtol(text);
        break;
    case DBVT_SINGLE:
        m_fltVal = NarrowToFloat(_wtof(text));
        break;
    case DBVT_DOUBLE:
        m_dblVal = _wtof(text);
        break;
    case DBVT_DATE:
        *m_pdate = ReadTimestamp(text, m_DateFormat == DATE_OUTPUT_DATABASE);
        break;
    case DBVT_STRING:
        *m_pstring = text;
        break;
    default:
        break;
    }
}

CDBField& CDBField::operator=(const COleDateTime& date)
{
    TakeParamType(DBVT_DATE);
    if (m_dwType == DBVT_NULL)
        SetType(DBVT_DATE);
    if (m_dwType == DBVT_DATE)
        *m_pdate = TimestampOf(date);
    else if (m_dwType == DBVT_STRING)
        *m_pstring = LocaleDateText(date);
    return *this;
}

CDBField& CDBField::operator=(const TIMESTAMP_STRUCT& time)
{
    TakeParamType(DBVT_DATE);
    if (m_dwType == DBVT_NULL)
        SetType(DBVT_DATE);
    if (m_dwType == DBVT_DATE)
        *m_pdate = time;
    return *this;
}

} // namespace utility
