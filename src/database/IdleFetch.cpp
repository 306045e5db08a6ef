#include "database/IdleFetch.h"

#include "database/DBAContext.h"
#include "frame/AppLog.h"
#include "platform/db/DBException.h"
#include "platform/db/Recordset.h"

namespace utility
{

namespace
{

constexpr DWORD STEP = 10; // milliseconds that a key or click may have to wait

} // namespace

CIdleFetch::CIdleFetch(CRecordset& set, std::function<void(EIdleFetch)> told)
    : m_Set(set),
      m_Told(std::move(told))
{
}

bool CIdleFetch::DoIdleProcessing(LONG /*count*/)
{
    if (m_State != EIdleFetch::Running)
        return false;
    m_State = FetchStep();
    if (m_Told)
        m_Told(m_State);
    return m_State == EIdleFetch::Running;
}

EIdleFetch CIdleFetch::FetchStep()
{
    try
    {
        return m_Set.FetchAhead(STEP) ? EIdleFetch::Running : EIdleFetch::Complete;
    }
    catch (CDBException* exception) // nothing may leave idle time; the next move tells it again
    {
        const CExceptionGuard guard(exception);
        CAppLog::Log(DBAContext(), u"\nCDBException: %1\n", exception->GetErrorText());
        return EIdleFetch::Failed;
    }
}

} // namespace utility
