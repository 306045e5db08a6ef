#pragma once

#include "platform/base/collections/DWordArray.h"
#include "platform/db/GXDynamicRecordset.h"

#include <memory>
#include <vector>

namespace utility
{

class CDBClientFilter;
class CDBClientFilterSet;
class CColumnFilter;
class CColumnNumbers;
class CPtrList;
class CStringArray;
struct COGDynSortInfo;

/// The rows behind a record grid: those that the client filters let through, by number, in the
/// order of the query or of a sort.
///
/// Rows are tested as far as a move needs, so the count of rows grows while a grid scrolls. Only
/// the numbers of matching rows are kept, 4 bytes each. With filters, moves, positions, count and
/// status are those of the matching rows:
///
///     Next, Prior           beyond an end its state, from where the framework refuses
///     Absolute, Relative    beyond an end its state; Absolute counts from 1, negative from the end
///     Last                  tests all rows that are left
///
/// A filter on a column that the query does not have is passed over; if no filter has its column,
/// all rows show. One thread.
class UTILITY_CORE_API COGDynRecordset : public CGXDynamicRecordset
{
    DECLARE_DYNAMIC(COGDynRecordset)

public:
    explicit COGDynRecordset(CDatabase* database);
    ~COGDynRecordset() override;

    // Filtering: OGDynRecordsetFilter.cpp has the moves, OGDynRecordsetScan.cpp the tests

    /// Takes the filters over; null removes them. They work from the next Open or Requery.
    void SetLocalFilters(CDBClientFilterSet* filters);
    /// The same, but they work at once, on the rows as they were fetched: no query is run, the
    /// first match is current, an order is dropped.
    void ApplyLocalFilters(CDBClientFilterSet* filters);
    bool IsLocalFiltering() const { return m_FilterState == EFilterState::On; }
    /// Whether a filter names the field, in any case of letters; `filter`, if given, takes it.
    bool IsFieldFiltered(const CString& name, CDBClientFilter** filter = nullptr) const;

    void Close() override;
    void PreBindFields() override;
    void Move(std::int32_t rows, WORD fetchType = SQL_FETCH_RELATIVE) override;
    BOOL Requery() override;

    /// While filtering, rows are fetched and tested: of both at most so many, for at most so long.
    /// The least step is a thousand rows.
    bool FetchAhead(DWORD milliseconds, std::int32_t rows = INT32_MAX) override;

    /// While filtering, the matches found so far.
    std::int32_t GetRecordCount() const;
    /// While filtering, the number among the matches, and whether all rows have been tested.
    void GetStatus(CRecordsetStatus& status) const;

    /// "[%s]" of each column's name.
    void GetFieldNames(CStringArray& names) const;

    /// Orders all rows by the list (of COGDynSortInfo*, the caller's), numbers before texts; the
    /// first row is current afterwards. The last entry whose field is there decides alone, equal
    /// rows stand by record number. Requery drops the order. In OGDynRecordsetSort.cpp.
    void SortFilteredRecords(const CPtrList& sortList);

protected:
    /// -1 if the query has no such column; any case of letters.
    int GetFieldIndex(const CString& name) const;
    const CGXFieldInfo& GetField(const CString& name) const;
    bool DoesCurrentRecordMatch() { return DoesRecordMatch(GetRealRecord()); }

private:
    enum class EFilterState
    {
        Undecided = -1, // until the first fetch
        Off,
        On
    };

    // What is known of the matches
    void ResetFiltering();
    void ForgetMatches();
    void ForgetColumns();
    bool CheckLocalFilters();
    void CompileFilters();
    CColumnNumbers& GetNumbers(int field, int parseType);
    void InitFilteredMove();
    int GetSeenCount() const { return m_SeenRecords.GetSize(); }

    // Tests of rows, in the order of the query
    bool FilterToMatchedRecordNo(std::int64_t target);
    void TestAllRows();
    bool FindNextMatch();
    bool TestNextRecord();
    bool DoesRecordMatch(std::int64_t record);
    std::int64_t GetFetchedCount() const;
    void NoteEnd();

    // Moves among the matches
    void AlignToNewFilteredRecord();
    void FilteredMove(std::int32_t rows, WORD fetchType);
    void FilteredMoveNext();
    void FilteredMovePrior();
    void FilteredMoveFirst();
    void FilteredMoveLast();
    void MoveToMatch(std::int64_t place);
    void MoveBeforeFirst();
    void MoveBehindLast();
    std::int64_t FindMatch(std::int32_t rows, WORD fetchType);
    void SyncCurrentMatchedRecord();
    void DoRealMove(std::int64_t target);
    std::int32_t GetRealRecord() const;
    const COGDynSortInfo* FindSortKey(const CPtrList& sortList) const;

    CDWordArray m_SeenRecords; // the record number of each match found so far
    int m_CurrentMatch = -1;   // the current row's place among them
    int m_LastMatch = -1;      // the last one's, once the end was seen with more than one
    EFilterState m_FilterState = EFilterState::Undecided;
    std::int64_t m_NextTest = 0; // the first record that no test has seen
    bool m_EndSeen = false;      // all rows have been tested
    std::unique_ptr<CDBClientFilterSet> m_Filters;

    // Of the present rows
    std::vector<std::unique_ptr<CColumnNumbers>> m_ColumnNumbers; // read so far
    std::vector<CColumnFilter> m_Tests;                           // the filters that are on
};

} // namespace utility
