#pragma once

#include "database/OGDynRecordset.h"

#include "utility/db/browse/BrowseCondition.h"

namespace utility
{

class CDBADatabase;
class CDBFieldMap;

/// The rows of a table for one who looks at them: fetched, filtered and sorted step by step, so
/// that nobody waits for more than there is to see.
///
/// Columns that the map does not load are not read. Refusals of the source raise CDBException.
class CBrowseRows
{
public:
    CBrowseRows(CDBADatabase& database, const CDBFieldMap& map);

    const std::vector<CBrowseColumn>& GetColumns() const { return m_Columns; }

    /// The rows that are known to be there, and whether these are all.
    int GetCount() const;
    bool IsComplete() const { return m_IsComplete; }
    /// The rows read so far, whether they match or not.
    int GetReadCount() const { return m_Rows.CRecordset::GetRecordCount(); }

    /// Reads and tests rows for about so long; false once all are known.
    bool FetchAhead(DWORD milliseconds);

    /// The text of a row that is known.
    CString GetText(int row, std::size_t column);

    /// Whether a row that is known meets a condition.
    bool DoesMatch(int row, const CBrowseCondition& condition);

    /// Only rows that meet the condition, all where null, in the order of the source.
    void Filter(const CBrowseCondition* condition);

    /// All rows by one column, once all are known: numbers by value, then texts.
    void Sort(std::size_t column, bool ascending);

private:
    void Open(const CString& table);
    void MoveTo(int row);
    int GetParseType(const CBrowseCondition& condition) const;
    void ForgetMatches();
    bool TestTexts(DWORD milliseconds);
    bool HoldsText(const CString& text);

    CDBADatabase& m_Database;
    std::vector<CBrowseColumn> m_Columns; // as the query has them
    COGDynRecordset m_Rows;
    bool m_IsComplete = false;

    // A text that any column may hold is looked for here, in the rows that the recordset gives.
    CString m_Text;             // empty: no such condition
    std::vector<int> m_Matches; // places in the recordset
    int m_TestedCount = 0;
};

} // namespace utility
