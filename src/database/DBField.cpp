#include "database/DBField.h"

#include "platform/base/CharacterClass.h"
#include "platform/base/GlobalMemory.h"
#include "platform/db/LongBinary.h"

namespace utility
{

CDBField::CDBField(const CDBField& other) : CDBVariant()
{
    *this = other;
}

bool CDBField::ValidName(const CString& name)
{
    CString trimmed(name);
    trimmed.Trim();
    const std::u16string_view view = trimmed.View();
    const auto inside = [](char16_t unit)
    {
        return IsAlnum(unit) || unit == u'_';
    };
    return !view.empty() && IsAlpha(view.front()) && std::all_of(view.begin(), view.end(), inside);
}

void CDBField::Clear()
{
    CDBVariant::Clear();
    m_NullState = -1;
}

CDBField& CDBField::operator=(const CDBField& other)
{
    if (this == &other)
        return *this;
    *this = static_cast<const CDBVariant&>(other);
    m_NullState = other.m_NullState;
    m_strName = other.m_strName;
    m_bParam = other.m_bParam;
    return *this;
}

CDBField& CDBField::operator=(const CDBVariant& other)
{
    if (this == &other)
        return *this;
    if (m_dwType != other.m_dwType)
    {
        Clear();
        SetType(other.m_dwType);
    }
    switch (other.m_dwType)
    {
    case DBVT_BOOL:
        m_boolVal = other.m_boolVal;
        break;
    case DBVT_UCHAR:
        m_chVal = other.m_chVal;
        break;
    case DBVT_SHORT:
        m_iVal = other.m_iVal;
        break;
    case DBVT_LONG:
        m_lVal = other.m_lVal;
        break;
    case DBVT_SINGLE:
        m_fltVal = other.m_fltVal;
        break;
    case DBVT_DOUBLE:
        m_dblVal = other.m_dblVal;
        break;
    case DBVT_DATE:
        *m_pdate = *other.m_pdate;
        break;
    case DBVT_STRING:
        *m_pstring = *other.m_pstring;
        break;
    case DBVT_BINARY:
        SetType(DBVT_BINARY);
        break;
    case DBVT_ASTRING:
        *m_pstringA = *other.m_pstringA;
        break;
    case DBVT_WSTRING:
        *m_pstringW = *other.m_pstringW;
        break;
    default:
        break;
    }
    return *this;
}

bool CDBField::SetBinary(HGLOBAL data, DWORD size)
{
    if (!IsBinary())
        return false;
    GlobalFree(m_pbinary->m_hData);
    m_pbinary->m_hData = data;
    m_pbinary->m_dwDataLength = size;
    return true;
}

} // namespace utility
