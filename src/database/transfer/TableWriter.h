#pragma once

#include "database/transfer/SourceKind.h"
#include "database/transfer/TransferColumn.h"
#include "platform/base/Export.h"
#include "platform/db/DbValue.h"
#include "platform/db/ODBCFieldInfo.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace utility
{

class CDatabase;
struct StatementRecord;

/// Adds rows to a table by one prepared INSERT with bound values of any length; the transaction is
/// the caller's. Refusals raise CDBException.
class UTILITY_CORE_API CTableWriter
{
public:
    /// `columns` name the table's columns and tell how their values come.
    CTableWriter(CDatabase& database, const CString& table,
                 const std::vector<CTransferColumn>& columns);
    ~CTableWriter();
    CTableWriter(const CTableWriter&) = delete;
    CTableWriter& operator=(const CTableWriter&) = delete;

    /// One value a column, as CTableReader gives them.
    void Write(std::span<const CDbValue> values);

private:
    void SetMark(std::size_t index, const CDbValue& value);
    void Require(RETCODE code);

    CDatabase& m_Database;
    ESourceKind m_Kind;
    std::vector<CTransferColumn> m_Columns;
    std::unique_ptr<StatementRecord> m_Statement;
    std::string m_Text; // of a value that is written anew
};

} // namespace utility
