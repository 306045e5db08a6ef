#pragma once

#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/db/DbValue.h"
#include "platform/db/ODBCFieldInfo.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

/// What the database classes need of a driver manager; platform/backend/odbc answers it with
/// unixODBC.
///
/// The records are what the handles HDBC and HSTMT point at. Calls give ODBC return codes; a
/// refused one is worded by ReadDiagnostics before the next call.
namespace utility
{

class CSnapshotStore;

struct CDiagnostic
{
    CString State;
    std::int32_t Native = 0;
    CString Message; // with its bracketed origin
};

/// How the fetch treats a result column.
struct CColumnLayout
{
    EValueKind Kind = EValueKind::None;
    int TextLimit = 0; // 16-bit units; 0 for texts of any length, whole
};

/// One statement and its cursor.
struct StatementRecord
{
    virtual ~StatementRecord() = default;

    virtual RETCODE Execute(std::u16string_view sql) = 0;
    virtual RETCODE Prepare(std::u16string_view sql) = 0;
    virtual RETCODE ExecutePrepared() = 0;
    virtual std::int64_t GetRowCount() = 0;

    /// Gives a mark, counted from 0, its value; a copy is kept. The column's type and size say how
    /// it is sent.
    virtual RETCODE SetParameter(std::size_t index, const CDbValue& value,
                                 const CODBCFieldInfo& column) = 0;

    virtual RETCODE DescribeColumns(std::vector<CODBCFieldInfo>& columns) = 0;

    /// Must come before the first fetch; one layout a column.
    virtual RETCODE BindColumns(std::span<const CColumnLayout> layouts) = 0;

    /// Appends the next row set; SQL_NO_DATA behind the last row.
    virtual RETCODE FetchRows(CSnapshotStore& store) = 0;

    /// Ends the last execution; the statement stays prepared.
    virtual void CloseCursor() = 0;

    /// Stops the call that runs on this statement, if one does; any thread, never waits.
    virtual void Cancel() = 0;

    /// Cancel came to a call of the present execution; a driver need not say so itself.
    virtual bool WasStopped() const = 0;
    virtual std::vector<CDiagnostic> ReadDiagnostics() const = 0;
};

/// What the database classes ask about a connected source.
struct CDriverTraits
{
    bool HasTransactions = false;

    // How a real number and a date that were read out are found again; %s is the column
    const char16_t* RealCondition = u"%s=?";
    const char16_t* DateCondition = u"%s=?";
};

/// What a source and its driver say of themselves, and how the driver has to be treated.
struct CSourceFacts
{
    CString DbmsName; // as SQL_DBMS_NAME
    CString DbmsVersion;
    CString DriverName; // its library
    CString DriverVersion;
    CString OdbcVersion;            // of the standard that the driver follows
    bool IsKnown = false;           // its peculiarities were measured
    bool IsWide = true;             // statements go out as UTF-16, else as UTF-8
    int RowSetSize = 1;             // rows a fetch
    bool TakesWholeResult = false;  // before the first row is there
    bool CursorStandsAlone = false; // an unfinished cursor does not survive another statement
    bool HidesColumns = false;      // says text of each expression, and cuts names at a dot
    bool StoresDatesAsText = false;
};

struct ConnectionRecord
{
    virtual ~ConnectionRecord() = default;

    virtual std::unique_ptr<StatementRecord> MakeStatement(DWORD timeoutSeconds) = 0;
    virtual const CDriverTraits& GetTraits() const = 0;
    virtual CSourceFacts ReadFacts() const { return {}; }

    /// A string that opens the same source again.
    virtual const CString& GetConnect() const = 0;
    virtual RETCODE SetAutoCommit(bool isOn) = 0;
    virtual RETCODE EndTransaction(bool keep) = 0;

    /// A call has found the far side gone; asks nobody.
    virtual bool IsLost() const = 0;
    virtual std::vector<CDiagnostic> ReadDiagnostics() const = 0;
};

struct CConnectRequest
{
    CString Connect;
    bool IsReadOnly = false;
    DWORD LoginTimeoutSeconds = 0;
};

/// The connection, or null and the driver's words; defined in platform/backend/odbc/Connection.cpp.
std::unique_ptr<ConnectionRecord> ConnectToSource(const CConnectRequest& request,
                                                  std::vector<CDiagnostic>& diagnostics);

} // namespace utility
