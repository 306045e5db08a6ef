#include "platform/db/DBException.h"
#include "platform/db/DBRefusal.h"
#include "platform/db/Database.h"
#include "platform/db/Recordset.h"
#include "platform/db/RecordsetRows.h"

#include <algorithm>
#include <cstdlib>

namespace utility
{

void CRecordset::Move(std::int32_t rows, WORD fetchType)
{
    if (m_nFieldsBound == 0)
    {
        InitRecord();
        ResetCursor();
    }
    if (m_nFieldsBound > 0)
        ClearFieldStatus();
    CheckRowsetCurrencyStatus(fetchType, rows);
    const bool skips = (m_dwOptions & skipDeletedRecords) != 0 && fetchType != SQL_FETCH_ABSOLUTE;
    const RETCODE code = skips ? SkipDeletedRecords(fetchType, rows) : FetchData(fetchType, rows);
    SetRowsetCurrencyStatus(code, fetchType, rows);
    if (m_nFields > 0 && !IsBOF() && !IsEOF())
        Fixups();
}

void CRecordset::ResetCursor()
{
    if (m_Rows)
        m_Rows->Position = -1;
    m_bBOF = true;
    m_bEOF = false;
    m_bDeleted = false;
    m_bEndSeen = false;
    m_lCurrentRecord = 0;
    m_lRecordCount = 0;
}

void CRecordset::CheckRowsetCurrencyStatus(WORD fetchType, std::int32_t rows)
{
    if (!IsOpen())
        ThrowRefusal(AFX_SQL_ERROR_NO_ROW);
    const bool isForward =
        fetchType == SQL_FETCH_NEXT || (fetchType == SQL_FETCH_RELATIVE && rows > 0);
    const bool isBackward =
        fetchType == SQL_FETCH_PRIOR || (fetchType == SQL_FETCH_RELATIVE && rows < 0);
    if (m_nResultCols == 0 || (isForward && m_bEOF) || (isBackward && m_bBOF))
        ThrowRefusal(AFX_SQL_ERROR_PAST_END);
}

/// The row number that a step goes to, -1 for before the first.
std::int64_t CRecordset::FindTarget(WORD fetchType, std::int32_t rows)
{
    const bool isFromEnd =
        fetchType == SQL_FETCH_LAST || (fetchType == SQL_FETCH_ABSOLUTE && rows < 0);
    if (isFromEnd)
        Require(m_Rows->FillAll());
    switch (fetchType)
    {
    case SQL_FETCH_NEXT:
        return m_Rows->Position + 1;
    case SQL_FETCH_PRIOR:
        return m_Rows->Position - 1;
    case SQL_FETCH_FIRST:
        return 0;
    case SQL_FETCH_LAST:
        return m_Rows->GetCount() - 1;
    case SQL_FETCH_ABSOLUTE:
        return rows < 0 ? m_Rows->GetCount() + rows : std::int64_t{rows} - 1;
    case SQL_FETCH_RELATIVE:
        return m_Rows->Position + rows;
    default:
        ThrowRefusal(AFX_SQL_ERROR_NOT_OFFERED, u"a fetch of this kind");
    }
}

RETCODE CRecordset::FetchData(WORD fetchType, std::int32_t rows)
{
    const std::int64_t target = std::max<std::int64_t>(FindTarget(fetchType, rows), -1);
    Require(m_Rows->Fill(target + 1));
    m_Rows->Position = std::min(target, m_Rows->GetCount());
    return m_Rows->IsOnRow() ? SQL_SUCCESS : SQL_NO_DATA;
}

RETCODE CRecordset::SkipDeletedRecords(WORD fetchType, std::int32_t rows)
{
    const bool isBackward = fetchType == SQL_FETCH_PRIOR || fetchType == SQL_FETCH_LAST ||
                            (fetchType == SQL_FETCH_RELATIVE && rows < 0);
    const WORD onward = isBackward ? SQL_FETCH_PRIOR : SQL_FETCH_NEXT;
    const bool isCounted = fetchType == SQL_FETCH_RELATIVE && rows != 0;
    std::int64_t steps = isCounted ? std::abs(std::int64_t{rows}) : 1;
    RETCODE code = FetchData(isCounted ? onward : fetchType, rows);
    for (;;)
    {
        while (code == SQL_SUCCESS && m_Rows->IsDeleted())
            code = FetchData(onward, 1);
        if (code != SQL_SUCCESS || --steps == 0)
            return code;
        code = FetchData(onward, 1);
    }
}

void CRecordset::SetRowsetCurrencyStatus(RETCODE /*code*/, WORD /*fetchType*/,
                                         std::int32_t /*rows*/)
{
    const std::int64_t count = m_Rows->GetCount();
    const bool isEmpty = count == 0 && m_Rows->IsComplete();
    m_bBOF = m_Rows->Position < 0 || isEmpty;
    m_bEOF = isEmpty || (m_Rows->Position >= count && m_Rows->IsComplete());
    m_bDeleted = m_Rows->IsDeleted();
    const std::int64_t current =
        std::clamp<std::int64_t>(m_Rows->Position, 0, std::max<std::int64_t>(count - 1, 0));
    m_lCurrentRecord = static_cast<std::int32_t>(std::min<std::int64_t>(current, INT32_MAX));

    // Rows fetched ahead are not counted until a move saw them, so that the count is the same with
    // every driver.
    m_bEndSeen = m_bEndSeen || m_bEOF;
    CountRows(m_bEndSeen ? count : m_Rows->Position + 1);
}

void CRecordset::CountRows(std::int64_t seen)
{
    m_lRecordCount =
        static_cast<std::int32_t>(std::clamp<std::int64_t>(seen, m_lRecordCount, INT32_MAX));
}

bool CRecordset::FetchAhead(DWORD milliseconds, std::int32_t rows)
{
    if (!m_Rows || m_nResultCols <= 0 || rows <= 0)
        return false;
    if (!m_Rows->IsComplete())
        Require(m_Rows->FillFor(milliseconds, m_Rows->GetCount() + rows));
    m_bEndSeen = m_Rows->IsComplete();
    CountRows(m_Rows->GetCount());
    return !m_bEndSeen;
}

const CSnapshotStore* CRecordset::GetSnapshot() const
{
    return m_Rows ? m_Rows->GetStore() : nullptr;
}

bool CRecordset::FetchTo(std::int64_t row)
{
    Require(m_Rows->Fill(row + 1));
    return row < m_Rows->GetCount();
}

void CRecordset::GetStatus(CRecordsetStatus& status) const
{
    status.m_lCurrentRecord = m_lCurrentRecord;
    status.m_bRecordCountFinal = m_bEndSeen ? TRUE : FALSE;
}

} // namespace utility
