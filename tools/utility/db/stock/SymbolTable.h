#pragma once

#include "utility/db/stock/SymbolLibrary.h"

#include <cstdint>

namespace utility
{

class CDBADatabase;
class CODBCRecordset;

/// Rows that differ after an import.
struct CRowChanges
{
    std::int64_t m_Added = 0;
    std::int64_t m_Changed = 0;
    std::int64_t m_Deleted = 0;

    std::int64_t GetTotal() const { return m_Added + m_Changed + m_Deleted; }
    void operator+=(const CRowChanges& other);
};

/// The table `Symbols`: one row for each symbol, its key library and name. Refusals raise
/// CDBException.
class CSymbolTable
{
public:
    explicit CSymbolTable(CDBADatabase& database) : m_Database(database) {}

    /// Makes the table where it is not there yet.
    void Create();

    /// Makes the rows of a library those of its symbols, writing only what differs, all of it or
    /// nothing.
    ///
    /// False and nothing written if the user interrupted, or, with the last error set, if a text is
    /// longer than its column.
    [[nodiscard]] bool Store(const CString& library, const std::vector<CSymbol>& symbols,
                             CRowChanges& changes);

private:
    bool WriteChanges(CODBCRecordset& rows, const std::vector<CSymbol>& symbols,
                      CRowChanges& changes);

    CDBADatabase& m_Database;
};

} // namespace utility
