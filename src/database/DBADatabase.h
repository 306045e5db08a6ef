#pragma once

#include "database/DBAError.h"
#include "platform/base/collections/MapStringToString.h"
#include "platform/base/collections/StringArray.h"
#include "platform/db/Database.h"

namespace utility
{

class CDBFieldMap;
class CDBARecordset;

/// The dialect that a source is taken to speak, told from its connect string.
enum EDbType : int
{
    DB_TYPE_DEFAULT = 0,
    DB_TYPE_ORACLE = 1,
    DB_TYPE_POSTGRESQL = 2
};

/// A connection to a user's own database: finds out its tables and columns, and runs the few
/// statements of the tools.
///
/// Nothing here knows a table beforehand. Failures are results; `GetErrorDetails` has the driver's
/// words of the last one, which later successes leave. Only `DeleteTable` gives true whatever
/// happens: who must know asks `TableExists`. Statements that change the schema take names as
/// given; all others enclose them ("[name]"). Must outlive its recordsets. One thread.
class UTILITY_CORE_API CDBADatabase : public CDatabase
{
    DECLARE_DYNAMIC(CDBADatabase)

public:
    CDBADatabase() = default;

    /// Never throws: 0 with the driver's words recorded in `CAppError` (10690) and the log, but not
    /// in the error details.
    BOOL Open(LPCWSTR dsn, BOOL exclusive = FALSE, BOOL readOnly = FALSE,
              LPCWSTR connect = u"ODBC;", BOOL useCursorLib = TRUE) override;
    void Close() override;
    [[noreturn]] void ThrowDBException(RETCODE code) override;
    CString GetDSN() const override { return CString(); }

    /// One of EDbType; 0 while closed.
    int GetDbType() const { return m_DbType; }
    /// "[name]"; on Oracle a name with a full stop stays as it is, being qualified.
    CString DelimitTableName(const CString& name) const;

    // Statements by which tables are read: an override, found in any case of letters, else SELECT *
    // FROM [name]
    CString GetTableSql(const CString& table) const;
    void SetTableSql(const CString& table, const CString& sql);
    void RemoveAllTableSql() { m_TableSql.RemoveAll(); }
    void CopyTableSql(const CDBADatabase& other);

    // The catalogue
    /// False also without the right to read it.
    bool TableExists(const CString& table);
    bool CreateTable(const CString& table);
    bool DeleteTable(const CString& table);
    /// Tables, views and synonyms by bare names; those found before a failure stay.
    void ReadTableNames(CStringArray& names);
    /// Brings the map in line with the table's columns: entries of columns that stay keep their
    /// settings and order, new columns follow. An empty name empties the map.
    bool ReadFieldNames(const CString& table, CDBFieldMap& fieldMap);

    /// Sets what `CanTransact` answers; the old value.
    BOOL SetTransactionsAllowed(BOOL allowed);
    CString GetErrorDetails() const { return m_Error.GetDetails(); }

private:
    bool Execute(const char16_t* format, const CString& name);
    void Record(CDBException* exception);
    void WalkTableNames(HSTMT& statement, CStringArray& names);
    CString ReadTableName(HSTMT statement);
    void CheckCall(RETCODE code, HSTMT statement);
    void TakeColumns(CDBARecordset& set, CDBFieldMap& fieldMap);

    CDBAError m_Error;
    int m_DbType = DB_TYPE_DEFAULT;
    CMapStringToString m_TableSql;        // by lower-cased name
    HSTMT m_CatalogueStatement = nullptr; // kept from walk to walk; goes with the connection
};

} // namespace utility
