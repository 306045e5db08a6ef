#include "database/DBAError.h"

#include "platform/db/DBException.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"

namespace utility
{

void CDBAError::Record(CDBException* exception)
{
    const CExceptionGuard guard(exception);
    m_RetCode = exception->m_nRetCode;
    m_Error = exception->m_strError;
    m_StateNativeOrigin = exception->m_strStateNativeOrigin;
}

CString CDBAError::GetDetails() const
{
    if (IsEmpty())
        return CStringTable::Get(IDS_NO_ERROR);
    CString text;
    text.FormatMessage(CStringTable::Get(IDS_DATABASE_ERROR), m_Error, m_StateNativeOrigin);
    return text;
}

} // namespace utility
