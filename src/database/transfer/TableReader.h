#pragma once

#include "database/transfer/SourceKind.h"
#include "database/transfer/TransferColumn.h"
#include "platform/base/Export.h"
#include "platform/db/DbValue.h"
#include "platform/db/ODBCFieldInfo.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace utility
{

class CDatabase;
class CSnapshotStore;
struct StatementRecord;

/// The rows of a table or view, once from first to last, every value whole: texts and binaries of
/// any length, dates as the source writes them, decimals digit for digit.
///
/// Only some rows are in memory at a time. The connection is busy with them until the reader goes.
/// Refusals raise CDBException.
class UTILITY_CORE_API CTableReader
{
public:
    /// Finds the columns, all or those named; nothing is read yet.
    CTableReader(CDatabase& database, const CString& table, const std::vector<CString>& names = {});
    ~CTableReader();
    CTableReader(const CTableReader&) = delete;
    CTableReader& operator=(const CTableReader&) = delete;

    const std::vector<CTransferColumn>& GetColumns() const { return m_Columns; }

    /// Goes to the next row, the first at first; false behind the last.
    bool Next();

    // The current row
    /// Counted from 1.
    std::int64_t GetRowNumber() const { return m_RowNumber; }

    /// Integer, Real, Binary, or Text for everything else; refers to texts that go with the row.
    CDbValue GetValue(std::size_t column) const;

    /// SQLite alone: what stands in the file where it does not belong into the column, "text",
    /// "integer", "real" or "blob", or "NUL" for a text that has one; empty if all is well. So does
    /// a number that the column's type would round.
    std::string_view FindWrongStorage(std::size_t column) const;

private:
    void Describe(const std::vector<CString>& names);
    void ReadDeclaredTypes();
    CString ComposeSelect() const;
    void Open();
    bool FetchBatch();
    void Require(RETCODE code) const;

    CDatabase& m_Database;
    CString m_Table;
    ESourceKind m_Kind;
    std::vector<CODBCFieldInfo> m_Infos; // of the columns, as the driver tells
    std::vector<CTransferColumn> m_Columns;
    std::unique_ptr<StatementRecord> m_Statement; // from the first Next on
    std::vector<EValueKind> m_Kinds;
    std::unique_ptr<CSnapshotStore> m_Batch;
    std::size_t m_BatchRow = 0;
    std::int64_t m_RowNumber = 0;
    bool m_IsAtEnd = false;
};

} // namespace utility
