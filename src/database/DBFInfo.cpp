#include "database/DBFInfo.h"

#include "platform/base/CaseFold.h"
#include "platform/db/DBVariant.h"
#include "platform/db/OdbcTypes.h"

namespace utility
{

bool CDBFInfo::IsDate() const
{
    return m_Type == DBVT_DATE;
}

bool CDBFInfo::IsString() const
{
    return m_Type == DBVT_STRING || m_Type == DBVT_ASTRING || m_Type == DBVT_WSTRING;
}

bool CDBFInfo::IsNumericAsString() const
{
    return IsString() && (m_SqlType == DWORD{SQL_NUMERIC} || m_SqlType == DWORD{SQL_DECIMAL});
}

bool CDBFInfo::RequiresNumericValue() const
{
    return (m_Type >= DBVT_SHORT && m_Type <= DBVT_DOUBLE) || IsNumericAsString();
}

bool CDBFInfo::operator==(const CDBFInfo& other) const
{
    return EqualNoCase(m_MapTo.View(), other.m_MapTo.View()) &&
           EqualNoCase(m_Name.View(), other.m_Name.View()) && m_Type == other.m_Type &&
           m_Load == other.m_Load && m_Show == other.m_Show && m_Critical == other.m_Critical &&
           m_Hyperlink == other.m_Hyperlink && m_SqlType == other.m_SqlType &&
           m_ParseType == other.m_ParseType;
}

} // namespace utility
