#include "database/OGDynRecordset.h"
#include "platform/db/RecordsetStatus.h"

namespace utility
{

void COGDynRecordset::Move(std::int32_t rows, WORD fetchType)
{
    if (m_FilterState == EFilterState::On)
        return FilteredMove(rows, fetchType);
    CGXDynamicRecordset::Move(rows, fetchType);
    if (m_FilterState == EFilterState::Off)
        return;
    m_FilterState = EFilterState::Off;
    if (fetchType == SQL_FETCH_NEXT && !IsEOF() && CheckLocalFilters())
        InitFilteredMove();
}

/// Tests begin with the current row.
void COGDynRecordset::InitFilteredMove()
{
    m_FilterState = EFilterState::On;
    m_NextTest = GetRealRecord();
    CompileFilters();
    AlignToNewFilteredRecord();
}

/// On to the next row that matches; to the end if none does.
void COGDynRecordset::AlignToNewFilteredRecord()
{
    if (!FindNextMatch())
        return MoveBehindLast();
    m_CurrentMatch = GetSeenCount() - 1;
    SyncCurrentMatchedRecord();
}

void COGDynRecordset::FilteredMove(std::int32_t rows, WORD fetchType)
{
    CheckRowsetCurrencyStatus(fetchType, rows);
    switch (fetchType)
    {
    case SQL_FETCH_NEXT:
        return FilteredMoveNext();
    case SQL_FETCH_PRIOR:
        return FilteredMovePrior();
    case SQL_FETCH_FIRST:
        return FilteredMoveFirst();
    case SQL_FETCH_LAST:
        return FilteredMoveLast();
    default:
        return MoveToMatch(FindMatch(rows, fetchType));
    }
}

void COGDynRecordset::FilteredMoveNext()
{
    if (IsBOF() && GetSeenCount() > 0)
        m_CurrentMatch = 0;
    else if (m_CurrentMatch < GetSeenCount() - 1)
        ++m_CurrentMatch;
    else if (m_LastMatch >= 0 && m_CurrentMatch >= m_LastMatch)
        return MoveBehindLast();
    else
        return AlignToNewFilteredRecord();
    SyncCurrentMatchedRecord();
}

void COGDynRecordset::FilteredMovePrior()
{
    const int target = IsEOF() ? GetSeenCount() - 1 : m_CurrentMatch - 1;
    if (target < 0)
        return MoveBeforeFirst();
    m_CurrentMatch = target;
    SyncCurrentMatchedRecord();
}

void COGDynRecordset::FilteredMoveFirst()
{
    if (GetSeenCount() == 0)
        return MoveBeforeFirst();
    m_CurrentMatch = 0;
    SyncCurrentMatchedRecord();
}

void COGDynRecordset::FilteredMoveLast()
{
    if (GetSeenCount() == 0)
        return MoveBehindLast();
    TestAllRows();
    m_CurrentMatch = GetSeenCount() - 1;
    SyncCurrentMatchedRecord();
}

/// The place among the matches that a step by number goes to; below 0 for before the first.
std::int64_t COGDynRecordset::FindMatch(std::int32_t rows, WORD fetchType)
{
    if (fetchType == SQL_FETCH_ABSOLUTE)
    {
        if (rows >= 0)
            return std::int64_t{rows} - 1;
        TestAllRows();
        return std::int64_t{GetSeenCount()} + rows;
    }
    const int from = IsEOF() ? GetSeenCount() : IsBOF() ? -1 : m_CurrentMatch;
    return std::int64_t{from} + rows;
}

void COGDynRecordset::MoveToMatch(std::int64_t place)
{
    if (place < 0)
        return MoveBeforeFirst();
    if (place >= GetSeenCount() && !FilterToMatchedRecordNo(place))
        return MoveBehindLast();
    m_CurrentMatch = static_cast<int>(place);
    SyncCurrentMatchedRecord();
}

void COGDynRecordset::MoveBeforeFirst()
{
    m_CurrentMatch = GetSeenCount() > 0 ? 0 : -1;
    CGXDynamicRecordset::Move(0, SQL_FETCH_FIRST);
    if (!IsBOF())
        CGXDynamicRecordset::Move(-1, SQL_FETCH_PRIOR);
}

void COGDynRecordset::MoveBehindLast()
{
    m_CurrentMatch = GetSeenCount() - 1;
    CGXDynamicRecordset::Move(0, SQL_FETCH_LAST);
    if (!IsEOF())
        CGXDynamicRecordset::Move(1, SQL_FETCH_NEXT);
}

void COGDynRecordset::SyncCurrentMatchedRecord()
{
    if (m_CurrentMatch < 0)
        return;
    const auto record = static_cast<std::int32_t>(m_SeenRecords.GetAt(m_CurrentMatch));
    if (IsBOF() || IsEOF() || GetRealRecord() != record)
        DoRealMove(record);
}

/// By the cheapest step; at an end no step but an absolute one is sure to land on the record.
void COGDynRecordset::DoRealMove(std::int64_t target)
{
    const std::int64_t distance = target - GetRealRecord();
    if (!IsBOF() && !IsEOF() && distance == 1)
        CGXDynamicRecordset::Move(1, SQL_FETCH_NEXT);
    else if (!IsBOF() && !IsEOF() && distance == -1)
        CGXDynamicRecordset::Move(-1, SQL_FETCH_PRIOR);
    else
        CGXDynamicRecordset::Move(static_cast<std::int32_t>(target + 1), SQL_FETCH_ABSOLUTE);
}

std::int32_t COGDynRecordset::GetRealRecord() const
{
    CRecordsetStatus status;
    CGXDynamicRecordset::GetStatus(status);
    return status.m_lCurrentRecord;
}

} // namespace utility
