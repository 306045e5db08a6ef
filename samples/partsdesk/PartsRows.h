#pragma once

#include "database/DBADatabase.h"
#include "database/OGDynRecordset.h"

#include "FilterLine.h"

#include <memory>
#include <vector>

namespace partsdesk
{

/// A value of a part, with its column's name.
struct CPartValue
{
    utility::CString m_Name;
    utility::CString m_Text;
};

/// The rows of one table of a database file: those that the filter lets through, by number.
///
/// Rows come as they are asked for and in idle steps, so the first are there at once whatever the
/// table's size. Failures are results with the reason recorded. One thread.
class CPartsRows
{
public:
    CPartsRows() = default;

    /// Opens a file for reading; without a failure the first table is open, if there is one.
    [[nodiscard]] bool Open(const utility::CString& file);
    /// Goes back to no rows.
    void Close();
    const utility::CString& GetFile() const { return m_File; }
    const std::vector<utility::CString>& GetTables() const { return m_Tables; }

    [[nodiscard]] bool OpenTable(const utility::CString& table);
    const utility::CString& GetTable() const { return m_Table; }
    const std::vector<CColumn>& GetColumns() const { return m_Columns; }

    /// Shows only what the line lets through; all rows for an empty one. False, with the reason and
    /// the rows as they were, if it is none.
    [[nodiscard]] bool SetFilter(const utility::CString& line, utility::CString& reason);

    /// Fetches and tests for so long; true while more may come.
    bool FetchAhead(utility::DWORD milliseconds);
    /// The rows found so far.
    int GetCount() const { return m_Count; }
    /// The values of the first columns, with tabs between; empty for a row that is not there.
    utility::CString GetLine(int row, int columns);
    /// All values of a row; none for a row that is not there.
    std::vector<CPartValue> GetPart(int row);

private:
    void ReadColumns();
    void CountRows();
    bool GoTo(int row);

    utility::CString m_File;
    utility::CString m_Table;
    utility::CDBADatabase m_Database;
    std::vector<utility::CString> m_Tables;
    std::vector<CColumn> m_Columns;
    std::unique_ptr<utility::COGDynRecordset> m_Rows; // goes before the connection
    int m_Count = 0;
};

} // namespace partsdesk
