#pragma once

#include "database/DBClientFilterSet.h"
#include "platform/db/GXDynamicRecordset.h"

#include "utility/db/query/QueryOptions.h"

#include <cstdint>

namespace utility
{

class CDBADatabase;

/// How a query ended.
enum class EQueryEnd
{
    Done,
    NoColumn, // a column that it names is not there: told
    Stopped   // by the user: told
};

/// A table's rows as a query wants them: filtered and sorted in the program, by the values that
/// texts such as 4k7 mean.
///
/// Refusals of the source raise CDBException.
class CDbQuery
{
public:
    CDbQuery(CDBADatabase& database, const CQueryOptions& options);

    [[nodiscard]] EQueryEnd Run();

    // The result
    const std::vector<CString>& GetColumns() const { return m_Shown; }
    bool IsNumeric(std::size_t column) const { return m_IsNumeric[column]; }

    /// The rows that match, shown or not.
    std::size_t GetMatchCount() const { return m_Matches.size(); }
    /// Those to show: all, or as many as the limit.
    std::size_t GetShownCount() const;
    /// The texts of a row to show, one a column.
    std::vector<CString> ReadRow(std::size_t index);

    /// The column of a test that was likely meant by values, while no rule says what the column's
    /// texts mean; empty if there is none.
    CString FindColumnWithoutRule() const;

    std::int32_t GetRowCount() const { return m_Rows.GetRecordCount(); }
    /// Milliseconds of the whole query, and of filtering alone.
    std::uint64_t GetTime() const { return m_Time; }
    std::uint64_t GetFilterTime() const { return m_FilterTime; }

private:
    struct CPattern
    {
        int m_Field = -1;
        CString m_Pattern;
    };

    bool FindColumns();
    bool FindColumn(const CString& name, CString& found) const;
    CString ComposeSelect() const;
    void AddRead(const CString& column);
    int FindField(const CString& name) const;
    void PrepareTests();
    bool FetchRows();
    bool FilterRows();
    bool DoesRowMatch() const;
    void SortRows();

    CDBADatabase& m_Database;
    CQueryOptions m_Options;
    std::vector<CString> m_TableColumns;
    std::vector<CString> m_Read; // the columns that are fetched
    std::vector<CString> m_Shown;
    std::vector<int> m_ShownFields;
    std::vector<bool> m_IsNumeric; // of those shown
    CGXDynamicRecordset m_Rows;
    CDBClientFilterSet m_Filters;
    std::vector<CPattern> m_Patterns;
    std::vector<std::int32_t> m_Matches; // row numbers from 0, in the order to show
    std::uint64_t m_Time = 0;
    std::uint64_t m_FilterTime = 0;
};

} // namespace utility
