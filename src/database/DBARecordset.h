#pragma once

#include "database/DBAError.h"
#include "database/ODBCRecordset.h"

namespace utility
{

class CDBADatabase;

/// The rows of one table of a user's database.
///
/// Without SQL it opens its table. Unless told to throw, a failed `Requery` is a result; the
/// driver's words are in `GetErrorDetails`, the recordset's own.
class UTILITY_CORE_API CDBARecordset : public CODBCRecordset
{
    DECLARE_DYNAMIC(CDBARecordset)

public:
    CDBARecordset(CDBADatabase* database, const CString& tableName);

    CDBADatabase* GetDatabase() const;
    const CString& GetTableName() const { return m_TableName; }
    void SetTableName(const CString& name) { m_TableName = name; }
    /// As the connection encloses it; empty without a connection.
    CString DelimitTableName(const CString& name) const;
    /// "[table]", whatever the dialect.
    CString GetDefaultSQL() override;
    BOOL Requery() override;
    [[noreturn]] void ThrowDBException(RETCODE code, HSTMT statement = nullptr) override;

    bool HasTextField(const CString& name) const { return GetFieldID(name) >= 0; }
    /// Adds a text column of 255 characters; names go out as given. False, without a failure, if
    /// there is no table name or the column is there. An open set runs its statement again and
    /// stands on the first row.
    bool CreateTextField(const CString& name);

    CString GetErrorDetails() const { return m_Error.GetDetails(); }

private:
    void Reopen();

    CString m_TableName;
    CDBAError m_Error;
};

} // namespace utility
