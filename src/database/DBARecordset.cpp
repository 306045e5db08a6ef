#include "database/DBARecordset.h"

#include "database/DBADatabase.h"
#include "platform/db/DBException.h"

namespace utility
{

IMPLEMENT_DYNAMIC(CDBARecordset, CODBCRecordset)

CDBARecordset::CDBARecordset(CDBADatabase* database, const CString& tableName)
    : CODBCRecordset(database),
      m_TableName(tableName)
{
    m_nFields = 0;
    m_nDefaultType = snapshot;
}

CDBADatabase* CDBARecordset::GetDatabase() const
{
    return static_cast<CDBADatabase*>(m_pDatabase);
}

CString CDBARecordset::DelimitTableName(const CString& name) const
{
    return m_pDatabase ? GetDatabase()->DelimitTableName(name) : CString();
}

CString CDBARecordset::GetDefaultSQL()
{
    return u"[" + m_TableName + u"]";
}

BOOL CDBARecordset::Requery()
{
    try
    {
        return CODBCRecordset::Requery();
    }
    catch (CDBException* exception)
    {
        if (IsThrowOnError())
            throw;
        m_Error.Record(exception);
        return FALSE;
    }
}

void CDBARecordset::ThrowDBException(RETCODE code, HSTMT statement)
{
    AfxThrowDBException(code, m_pDatabase, statement ? statement : m_hstmt);
}

bool CDBARecordset::CreateTextField(const CString& name)
{
    if (m_TableName.IsEmpty() || HasTextField(name))
        return false;
    try
    {
        CString sql;
        sql.Format(u"ALTER TABLE %s ADD %s VARCHAR(255)", m_TableName, name);
        m_pDatabase->ExecuteSQL(sql);
        if (IsOpen())
            Reopen();
        return true;
    }
    catch (CDBException* exception)
    {
        m_Error.Record(exception);
        return false;
    }
}

// Runs the statement again, so that the columns of today are known; the parameters stay.
void CDBARecordset::Reopen()
{
    const CString sql = GetSQL();
    const DWORD options = m_dwOptions;
    const bool reset = IsResetOnClose();
    SetResetOnClose(false);
    Close();
    SetResetOnClose(reset);
    Open(sql.GetString(), m_nDefaultType, options);
}

} // namespace utility
