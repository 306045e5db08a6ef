#pragma once

#include "platform/backend/odbc/CallGate.h"
#include "platform/backend/odbc/ColumnProbe.h"
#include "platform/backend/odbc/Connection.h"
#include "platform/backend/odbc/Cursor.h"
#include "platform/backend/odbc/Parameter.h"
#include "platform/db/Driver.h"

#include <deque>
#include <vector>

namespace utility
{

/// One statement through the driver manager; must go before its connection.
class COdbcStatement : public StatementRecord
{
public:
    explicit COdbcStatement(COdbcConnection& connection);
    ~COdbcStatement() override;
    COdbcStatement(const COdbcStatement&) = delete;
    COdbcStatement& operator=(const COdbcStatement&) = delete;

    RETCODE Execute(std::u16string_view sql) override;
    RETCODE Prepare(std::u16string_view sql) override;
    RETCODE ExecutePrepared() override;
    std::int64_t GetRowCount() override;
    RETCODE SetParameter(std::size_t index, const CDbValue& value,
                         const CODBCFieldInfo& column) override;
    RETCODE DescribeColumns(std::vector<CODBCFieldInfo>& columns) override;
    RETCODE BindColumns(std::span<const CColumnLayout> layouts) override;
    RETCODE FetchRows(CSnapshotStore& store) override;
    void CloseCursor() override;
    void Cancel() override;
    bool WasStopped() const override { return m_Gate.WasStopped(); }
    std::vector<CDiagnostic> ReadDiagnostics() const override;

    /// Fetches what is left into the snapshot of the last fetch; what ends it is told by the next
    /// FetchRows.
    void FetchRest();

    void SetTimeout(DWORD seconds);
    void* GetHandle() const { return m_Handle; }
    COdbcConnection& GetConnection() const { return m_Connection; }

private:
    RETCODE Fetch(CSnapshotStore& store);
    RETCODE DescribeColumn(unsigned short number, CODBCFieldInfo& column) const;

    COdbcConnection& m_Connection;
    void* m_Handle;
    CCallGate m_Gate;
    COdbcCursor m_Cursor;
    std::string m_Sql;                   // as prepared, where the driver hides columns
    std::vector<CProbedColumn> m_Probed; // likewise
    bool m_MayHideColumns = false;       // the prepared statement is to be probed
    std::vector<CODBCFieldInfo> m_Columns;
    CSnapshotStore* m_Store = nullptr;   // while the cursor is unfinished
    RETCODE m_EndCode = 0;               // what ended the fetch, once it did
    std::deque<CParameter> m_Parameters; // the driver keeps pointers into them
};

} // namespace utility
