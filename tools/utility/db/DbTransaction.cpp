#include "utility/db/DbTransaction.h"

#include "platform/db/Database.h"
#include "platform/db/OdbcTypes.h"

namespace utility
{

CDbTransaction::CDbTransaction(CDatabase& database) : m_Database(database)
{
    if (!m_Database.BeginTrans())
        m_Database.ThrowDBException(SQL_ERROR);
    m_IsOpen = true;
}

CDbTransaction::~CDbTransaction()
{
    if (m_IsOpen)
        m_Database.Rollback();
}

void CDbTransaction::Commit()
{
    if (!m_Database.CommitTrans())
        m_Database.ThrowDBException(SQL_ERROR);
    m_IsOpen = false;
}

} // namespace utility
