#include "database/ODBCRecordsetException.h"

#include "resources/StringTable.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CODBCRecordsetException, CException)

CODBCRecordsetException::CODBCRecordsetException(UINT id, const CString& argument,
                                                 const CString& detail)
    : m_Id(id),
      m_Argument(argument),
      m_Detail(detail)
{
}

CString CODBCRecordsetException::GetErrorText() const
{
    CString text;
    text.FormatMessage(CStringTable::Get(m_Id), m_Argument);
    return text;
}

void ThrowODBCRecordsetException(UINT id, const CString& argument, const CString& detail)
{
    throw new CODBCRecordsetException(id, argument, detail);
}

} // namespace utility
