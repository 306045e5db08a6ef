#include "database/ColumnFilter.h"
#include "database/ColumnNumbers.h"
#include "database/DBClientFilterSet.h"
#include "database/OGDynRecordset.h"
#include "platform/db/SnapshotStore.h"
#include "platform/system/Clock.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::int64_t STEP = 1000; // rows tested between two looks at the clock

} // namespace

/// Finds the filters' columns in this query; false if none has its column.
bool COGDynRecordset::CheckLocalFilters()
{
    if (!m_Filters)
        return false;
    bool isAnyFound = false;
    for (POSITION position = m_Filters->GetHeadPosition(); position;)
    {
        CDBClientFilter& filter = *m_Filters->GetNext(position);
        filter.SetFieldIndex(GetFieldIndex(filter.GetFieldName()));
        isAnyFound = isAnyFound || filter.GetFieldIndex() >= 0;
    }
    return isAnyFound;
}

/// Binds the filters whose columns are there to the snapshot's columns.
void COGDynRecordset::CompileFilters()
{
    m_Tests.clear();
    for (POSITION position = m_Filters ? m_Filters->GetHeadPosition() : nullptr; position;)
    {
        const CDBClientFilter& filter = *m_Filters->GetNext(position);
        if (filter.GetFieldIndex() >= 0)
            m_Tests.emplace_back(filter, GetNumbers(filter.GetFieldIndex(), filter.GetParseType()));
    }
}

/// What the column's values stand for, read once for all filters and sorts until the next query.
CColumnNumbers& COGDynRecordset::GetNumbers(int field, int parseType)
{
    const CSnapshotColumn& column = GetSnapshot()->Column(static_cast<std::size_t>(field));
    for (const std::unique_ptr<CColumnNumbers>& numbers : m_ColumnNumbers)
        if (&numbers->GetColumn() == &column && numbers->GetParseType() == parseType)
            return *numbers;
    return *m_ColumnNumbers.emplace_back(std::make_unique<CColumnNumbers>(column, parseType));
}

/// Tests rows until there is a match of this number, from 0; false if there are fewer.
bool COGDynRecordset::FilterToMatchedRecordNo(std::int64_t target)
{
    while (GetSeenCount() <= target && FindNextMatch())
        continue;
    return GetSeenCount() > target;
}

void COGDynRecordset::TestAllRows()
{
    FilterToMatchedRecordNo(INT64_MAX);
}

/// Tests rows until one matches; false if none is left.
bool COGDynRecordset::FindNextMatch()
{
    do
    {
        for (const std::int64_t fetched = GetFetchedCount(); m_NextTest < fetched;)
            if (TestNextRecord())
                return true;
    } while (FetchTo(m_NextTest));
    NoteEnd();
    return false;
}

/// Notes the record if it matches.
bool COGDynRecordset::TestNextRecord()
{
    const std::int64_t record = m_NextTest++;
    const bool isPassedOver = (m_dwOptions & skipDeletedRecords) != 0 &&
                              GetSnapshot()->IsDeleted(static_cast<std::size_t>(record));
    if (isPassedOver || !DoesRecordMatch(record))
        return false;
    m_SeenRecords.Add(static_cast<DWORD>(record));
    return true;
}

bool COGDynRecordset::DoesRecordMatch(std::int64_t record)
{
    const auto row = static_cast<std::size_t>(record);
    const bool isDeleted = GetSnapshot()->IsDeleted(row); // reads as NULL
    return std::ranges::all_of(m_Tests, [&](CColumnFilter& test)
                               { return isDeleted ? test.IsNullMatch() : test.IsMatch(row); });
}

std::int64_t COGDynRecordset::GetFetchedCount() const
{
    return static_cast<std::int64_t>(GetSnapshot()->GetRowCount());
}

void COGDynRecordset::NoteEnd()
{
    m_EndSeen = true;
    if (GetSeenCount() > 1)
        m_LastMatch = GetSeenCount() - 1;
}

bool COGDynRecordset::FetchAhead(DWORD milliseconds, std::int32_t rows)
{
    if (!IsLocalFiltering() || !GetSnapshot()) // none where the connection ended under the set
        return CGXDynamicRecordset::FetchAhead(milliseconds, rows);
    const std::int64_t last = m_NextTest + rows;
    const std::uint64_t start = GetTickCount();
    std::uint64_t elapsed = 0;
    do
    {
        const std::int64_t wanted = std::min(last, m_NextTest + STEP);
        const std::int64_t missing = wanted - GetFetchedCount();
        const bool isMore = missing <= 0 || CGXDynamicRecordset::FetchAhead(
                                                static_cast<DWORD>(milliseconds - elapsed),
                                                static_cast<std::int32_t>(missing));
        while (m_NextTest < std::min(wanted, GetFetchedCount()))
            TestNextRecord();
        if (!isMore && m_NextTest == GetFetchedCount())
            NoteEnd();
        elapsed = GetTickCount() - start;
    } while (!m_EndSeen && m_NextTest < last && elapsed < milliseconds);
    return !m_EndSeen;
}

} // namespace utility
