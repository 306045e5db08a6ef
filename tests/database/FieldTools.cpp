#include "database/FieldTools.h"

#include "platform/base/Encoding.h"
#include "platform/base/GlobalMemory.h"
#include "platform/db/LongBinary.h"

#include <cstdio>
#include <cstring>

namespace utility
{

namespace
{

std::string Print(const char* format, auto... values)
{
    char text[256];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

std::string BytesOf(const CLongBinary& binary)
{
    const auto* bytes = static_cast<const char*>(GlobalLock(binary.m_hData));
    std::string result;
    if (bytes)
        result.assign(bytes, binary.m_dwDataLength);
    GlobalUnlock(binary.m_hData);
    return result;
}

} // namespace

std::string Show(const TIMESTAMP_STRUCT& time)
{
    return Print("%d-%02u-%02u %02u:%02u:%02u+%u", int{time.year}, unsigned{time.month},
                 unsigned{time.day}, unsigned{time.hour}, unsigned{time.minute},
                 unsigned{time.second}, unsigned{time.fraction});
}

std::string Show(const COleDateTime& date)
{
    if (date.GetStatus() != COleDateTime::valid)
        return date.GetStatus() == COleDateTime::null ? "null" : "invalid";
    return Print("%d-%02d-%02d %02d:%02d:%02d", date.GetYear(), date.GetMonth(), date.GetDay(),
                 date.GetHour(), date.GetMinute(), date.GetSecond());
}

std::string Show(const CDBVariant& value)
{
    switch (value.m_dwType)
    {
    case DBVT_NULL:
        return "NULL";
    case DBVT_BOOL:
        return Print("BOOL %d", value.m_boolVal);
    case DBVT_UCHAR:
        return Print("UCHAR %d", int{value.m_chVal});
    case DBVT_SHORT:
        return Print("SHORT %d", int{value.m_iVal});
    case DBVT_LONG:
        return Print("LONG %d", int{value.m_lVal});
    case DBVT_SINGLE:
        return Print("SINGLE %.9g", double{value.m_fltVal});
    case DBVT_DOUBLE:
        return Print("DOUBLE %.17g", value.m_dblVal);
    case DBVT_DATE:
        return "DATE " + Show(*value.m_pdate);
    case DBVT_STRING:
        return "STRING " + ToUtf8(value.m_pstring->View());
    case DBVT_BINARY:
        return "BINARY " + BytesOf(*value.m_pbinary);
    case DBVT_ASTRING:
        return "ASTRING " + *value.m_pstringA;
    case DBVT_WSTRING:
        return "WSTRING " + ToUtf8(value.m_pstringW->View());
    default:
        return Print("type %u", unsigned{value.m_dwType});
    }
}

std::vector<CReading> Readings(const CDBField& field)
{
    return {{"AsBool", field.AsBool() ? "true" : "false"},
            {"AsChar", std::to_string(field.AsChar())},
            {"AsShort", std::to_string(field.AsShort())},
            {"AsLong", std::to_string(field.AsLong())},
            {"AsInt64", std::to_string(field.AsInt64())},
            {"AsFloat", Print("%.17g", double{field.AsFloat()})},
            {"AsDouble", Print("%.17g", field.AsDouble())},
            {"AsDate", Show(field.AsDate())},
            {"AsTimeStamp", Show(field.AsTimeStamp())},
            {"AsString", '"' + ToUtf8(field.AsString().View()) + '"'}};
}

std::unique_ptr<CDBField> MakeField(DWORD type)
{
    auto field = std::make_unique<CDBField>();
    field->SetType(type);
    switch (type)
    {
    case DBVT_UCHAR:
        field->m_chVal = 'x';
        break;
    case DBVT_SHORT:
        field->m_iVal = 77;
        break;
    case DBVT_LONG:
        field->m_lVal = 77;
        break;
    case DBVT_SINGLE:
        field->m_fltVal = 77.5f;
        break;
    case DBVT_DOUBLE:
        field->m_dblVal = 77.5;
        break;
    case DBVT_DATE:
        *field->m_pdate = {2001, 2, 3, 4, 5, 6, 7};
        break;
    case DBVT_STRING:
        *field->m_pstring = u"old";
        break;
    case DBVT_BINARY:
        field->SetBinary(MakeBlock("\1\2\3"), 3);
        break;
    default:
        break;
    }
    return field;
}

HGLOBAL MakeBlock(const std::string& bytes)
{
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    std::memcpy(GlobalLock(block), bytes.data(), bytes.size());
    GlobalUnlock(block);
    return block;
}

} // namespace utility
